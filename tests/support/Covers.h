// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/ArtworkSource.h"

#include <QBuffer>
#include <QColor>
#include <QCryptographicHash>
#include <QImage>

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace trackwise {

inline QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

/// A cover of one colour.
inline QByteArray coverBytes(QSize size, const QColor &color, const char *format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return encoded(image, format);
}

/// Artwork that lies in memory; named by its content unless a key is given.
class MemoryArtwork : public ArtworkSource
{
public:
    explicit MemoryArtwork(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {}

    [[nodiscard]] QByteArray key() const override
    {
        return QCryptographicHash::hash(m_bytes, QCryptographicHash::Md5);
    }
    [[nodiscard]] std::optional<EncodedImage> read() const override
    {
        ++reads;
        if (beforeRead)
            beforeRead();
        return EncodedImage{m_bytes};
    }

    std::function<void()> beforeRead; ///< called on the worker
    mutable std::atomic<int> reads = 0;

private:
    QByteArray m_bytes;
};

/// A cover of one colour that lies in memory.
inline std::shared_ptr<MemoryArtwork> cover(const QColor &color, QSize size = {400, 400})
{
    return std::make_shared<MemoryArtwork>(coverBytes(size, color, "png"));
}

} // namespace trackwise
