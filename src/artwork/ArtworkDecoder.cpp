// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkDecoder.h"

#include "song/PictureFormat.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>

#include <algorithm>
#include <cmath>

namespace trackwise {

namespace {

/// What the markers of a JPEG file say about the work it makes (ITU-T T.81, annex B).
struct JpegShape
{
    bool isProgressive = false;
    int scans = 0;
};

JpegShape jpegShape(const QByteArray &bytes)
{
    constexpr uchar progressiveFrame = 0xc2;
    constexpr uchar startOfScan = 0xda;
    JpegShape shape;
    // In compressed data 0xff is always followed by 0 or a restart marker, so that looking for the bytes of
    // a marker finds markers, and at most a few more inside an embedded preview.
    for (qsizetype i = bytes.indexOf('\xff'); i >= 0 && i + 1 < bytes.size();
         i = bytes.indexOf('\xff', i + 1)) {
        const auto marker = static_cast<uchar>(bytes.at(i + 1));
        shape.isProgressive = shape.isProgressive || marker == progressiveFrame;
        shape.scans += marker == startOfScan ? 1 : 0;
    }
    return shape;
}

qint64 pixelCount(QSize size)
{
    return qint64{size.width()} * size.height();
}

/// Whether the picture can be unpacked at a reduced size without being held whole.
bool shrinksWhileDecoding(PictureFormat format, const JpegShape &shape)
{
    return format == PictureFormat::Jpeg && !shape.isProgressive;
}

QSize shrunkToPixels(QSize size, qint64 pixels)
{
    if (pixelCount(size) <= pixels)
        return size;
    const double factor = std::sqrt(static_cast<double>(pixels) / static_cast<double>(pixelCount(size)));
    return QSize(static_cast<int>(size.width() * factor), static_cast<int>(size.height() * factor))
        .expandedTo(QSize(1, 1));
}

QSize shrunkToCover(QSize size, int side)
{
    const int shorter = std::min(size.width(), size.height());
    if (shorter <= side)
        return size;
    return size.scaled(side, side, Qt::KeepAspectRatioByExpanding);
}

template <typename TargetSize>
Result<QImage> decode(const QByteArray &bytes, const DecodeLimits &limits, TargetSize targetSize)
{
    if (bytes.size() > limits.encodedBytes)
        return Failure{FailureKind::Unsupported, QStringLiteral("picture of %1 bytes").arg(bytes.size())};
    const std::optional<PictureFormat> format = pictureFormat(bytes);
    if (!format)
        return Failure{FailureKind::Unsupported, QStringLiteral("not a picture of a known kind")};

    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, fileSuffix(*format).toLatin1());
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty())
        return Failure{FailureKind::Malformed, reader.errorString()};
    const JpegShape shape = *format == PictureFormat::Jpeg ? jpegShape(bytes) : JpegShape{};
    const qint64 allowed = shrinksWhileDecoding(*format, shape) ? limits.shrinkingPixels : limits.wholePixels;
    if (pixelCount(size) > allowed || shape.scans > limits.jpegScans) {
        return Failure{FailureKind::Unsupported, QStringLiteral("picture of %1×%2 pixels in %3 passes")
                                                     .arg(size.width())
                                                     .arg(size.height())
                                                     .arg(shape.scans)};
    }

    if (const QSize target = targetSize(size); target != size)
        reader.setScaledSize(target);
    QImage image;
    if (!reader.read(&image) || image.isNull())
        return Failure{FailureKind::Malformed, reader.errorString()};
    const QColorSpace sRgb(QColorSpace::SRgb);
    if (image.colorSpace() != sRgb)
        image.convertToColorSpace(sRgb); // which leaves one of no colour space as it is
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    return image;
}

} // namespace

Result<QImage> decodeSquare(const QByteArray &bytes, int side, const DecodeLimits &limits)
{
    Result<QImage> decoded =
        decode(bytes, limits, [side](QSize size) { return shrunkToCover(size, std::max(1, side)); });
    if (!decoded)
        return decoded;
    const QSize size = decoded->size();
    const int shorter = std::min(size.width(), size.height());
    if (size.width() == size.height())
        return decoded;
    return decoded->copy((size.width() - shorter) / 2, (size.height() - shorter) / 2, shorter, shorter);
}

Result<QImage> decodeWhole(const QByteArray &bytes, const DecodeLimits &limits)
{
    return decode(bytes, limits, [&limits](QSize size) { return shrunkToPixels(size, limits.wholePixels); });
}

} // namespace trackwise
