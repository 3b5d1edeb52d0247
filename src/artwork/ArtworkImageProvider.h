// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickImageProvider>

namespace trackwise {

class ArtworkLoader;

/// Carries the loader of covers to the views of an engine, which know it by artworkProviderName().
class ArtworkImageProvider : public QQuickImageProvider
{
public:
    /// @p loader must outlive the engine that owns the provider.
    explicit ArtworkImageProvider(ArtworkLoader &loader)
        : QQuickImageProvider(Image)
        , m_loader(loader)
    {}

    [[nodiscard]] ArtworkLoader &loader() const { return m_loader; }

private:
    ArtworkLoader &m_loader;
};

} // namespace trackwise
