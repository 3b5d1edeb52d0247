// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickAsyncImageProvider>

namespace trackwise {

class ArtworkLoader;

/// Gives covers to `Image` elements: `source: "image://artwork/<persistent identifier>/<key>"`, and
/// `sourceSize` as the pixels wanted (the shorter side of what is given is at most the longer of these).
/// The picture is the cover's middle square; without one the image's status becomes an error.
class ArtworkImageProvider : public QQuickAsyncImageProvider
{
public:
    /// @p loader must outlive the engine that owns the provider.
    explicit ArtworkImageProvider(ArtworkLoader &loader);

    [[nodiscard]] ArtworkLoader &loader() const { return m_loader; }

    QQuickImageResponse *requestImageResponse(const QString &id, const QSize &requestedSize) override;

private:
    ArtworkLoader &m_loader;
};

} // namespace trackwise
