// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/ArtworkSource.h"

#include <QBuffer>
#include <QColor>
#include <QFile>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <random>

namespace trackwise {

/// Noise that compresses to about @p megabytes, on a colour that tells the covers apart.
inline QByteArray photograph(double megabytes, const QColor &color, const char *format, std::mt19937 &random)
{
    const bool isJpeg = qstrcmp(format, "jpg") == 0;
    const int side = static_cast<int>(std::sqrt(megabytes * 1e6 / (isJpeg ? 0.55 : 2.4)));
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < side; ++x) {
            const auto noise = static_cast<int>(random() % 64);
            line[x] = qRgb(std::min(255, color.red() + noise), std::min(255, color.green() + noise / 2),
                           std::min(255, color.blue() + noise / 3));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, isJpeg ? 92 : -1);
    return bytes;
}

/// A cover in a file, as the library's are.
class FileCover : public ArtworkSource
{
public:
    FileCover(QString path, QByteArray key)
        : m_path(std::move(path))
        , m_key(std::move(key))
    {}
    [[nodiscard]] QByteArray key() const override { return m_key; }
    [[nodiscard]] std::optional<EncodedImage> read() const override
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? std::optional(EncodedImage{file.readAll()}) : std::nullopt;
    }

private:
    QString m_path;
    QByteArray m_key;
};

} // namespace trackwise
