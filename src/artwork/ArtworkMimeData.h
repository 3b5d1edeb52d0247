// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/PictureFormat.h"

#include <QMimeData>
#include <QUrl>

#include <future>
#include <optional>

namespace trackwise {

/// A cover as other programs take it: always "image/png", and for a JPEG its original bytes as well.
struct ArtworkHandout
{
    QByteArray original;
    PictureFormat format = PictureFormat::Png;
    std::optional<QUrl> file; ///< for file managers

    /// The whole picture as PNG, ready or in the making; empty bytes when it could not be made.
    std::shared_future<QByteArray> png;
};

/// Offers a handout without having made the PNG yet: a receiver that asks for it waits until it is there.
class ArtworkMimeData : public QMimeData
{
    Q_OBJECT

public:
    explicit ArtworkMimeData(ArtworkHandout handout);

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] bool hasFormat(const QString &mimeType) const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString &mimeType, QMetaType type) const override;

private:
    ArtworkHandout m_handout;
};

/// Whether @p data is a cover that one of us, perhaps another process, hands out.
[[nodiscard]] bool isOurArtwork(const QMimeData &data);

/// The whole picture as PNG: the bytes themselves where they are one, else encoded anew. Any thread; a large
/// cover takes a second.
[[nodiscard]] QByteArray pngBytes(const QByteArray &original);

} // namespace trackwise
