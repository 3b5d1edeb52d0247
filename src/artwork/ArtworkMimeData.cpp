// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkMimeData.h"

#include "artwork/ArtworkDecoder.h"

#include <QBuffer>

namespace trackwise {

namespace {
// Of 100 (no compression) to 0: a tenth larger than the smallest file, at a quarter of the time.
constexpr int pngQuality = 80;

// Ours only; has no content.
const QString ownFormat = QStringLiteral("application/x-trackwise-artwork");
} // namespace

ArtworkMimeData::ArtworkMimeData(ArtworkHandout handout)
    : m_handout(std::move(handout))
{
    if (m_handout.file)
        setUrls({*m_handout.file});
}

QStringList ArtworkMimeData::formats() const
{
    QStringList formats{mimeType(PictureFormat::Png)};
    if (m_handout.format == PictureFormat::Jpeg)
        formats << mimeType(PictureFormat::Jpeg);
    return formats + QMimeData::formats() + QStringList(ownFormat);
}

bool ArtworkMimeData::hasFormat(const QString &mimeType) const
{
    return formats().contains(mimeType);
}

QVariant ArtworkMimeData::retrieveData(const QString &mimeType, QMetaType type) const
{
    if (mimeType == trackwise::mimeType(PictureFormat::Png))
        return m_handout.png.get();
    if (m_handout.format == PictureFormat::Jpeg && mimeType == trackwise::mimeType(PictureFormat::Jpeg))
        return m_handout.original;
    return QMimeData::retrieveData(mimeType, type);
}

bool isOurArtwork(const QMimeData &data)
{
    return data.hasFormat(ownFormat);
}

QByteArray pngBytes(const QByteArray &original)
{
    if (pictureFormat(original) == PictureFormat::Png)
        return original;
    const Result<QImage> whole = decodeWhole(original);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!whole || !whole->save(&buffer, "png", pngQuality))
        return {};
    return bytes;
}

} // namespace trackwise
