// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkDecoder.h"
#include "support/Covers.h"

#include <QTest>
#include <QtEndian>

using namespace trackwise;

namespace {

/// A JPEG whose header claims another size than the picture has.
QByteArray jpegClaiming(quint16 width, quint16 height, char frameMarker = '\xc0')
{
    QByteArray bytes = coverBytes({16, 16}, Qt::red, "jpg");
    const qsizetype frame = bytes.indexOf("\xff\xc0"); // marker, length (2), precision (1), height, width
    bytes[frame + 1] = frameMarker;
    qToBigEndian(height, bytes.data() + frame + 5);
    qToBigEndian(width, bytes.data() + frame + 7);
    return bytes;
}

QByteArray withScans(QByteArray jpeg, int scans)
{
    for (int i = 0; i < scans; ++i)
        jpeg.append(QByteArray::fromHex("ffda000801010000003f0000"));
    return jpeg;
}

/// A PNG that is all header: its claim must be refused before anything is unpacked.
QByteArray pngClaiming(quint32 width, quint32 height)
{
    QByteArray bytes = coverBytes({1, 1}, Qt::red, "png");
    qToBigEndian(width, bytes.data() + 16);
    qToBigEndian(height, bytes.data() + 20);
    // Its checksum (ISO/IEC 15948, annex D) lies behind the thirteen bytes of the header.
    quint32 crc = ~0U;
    for (const char c : bytes.mid(12, 17)) {
        crc ^= static_cast<uchar>(c);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1 ? 0xedb88320U : 0);
    }
    qToBigEndian(~crc, bytes.data() + 29);
    return bytes;
}

QByteArray halves(QSize size, const char *format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (int y = 0; y < size.height(); ++y)
        for (int x = size.width() / 2; x < size.width(); ++x)
            image.setPixelColor(x, y, Qt::blue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

} // namespace

class tst_ArtworkDecoder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void looksAtTheBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("mimeTypeName");
        QTest::newRow("jpeg") << coverBytes({4, 4}, Qt::red, "jpg") << u"image/jpeg"_qs;
        QTest::newRow("png") << coverBytes({4, 4}, Qt::red, "png") << u"image/png"_qs;
        QTest::newRow("bmp") << coverBytes({4, 4}, Qt::red, "bmp") << u"image/bmp"_qs;
        QTest::newRow("drawing") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>") << QString();
        QTest::newRow("sound in a RIFF file") << QByteArray("RIFF\4\0\0\0WAVEfmt ", 16) << QString();
        QTest::newRow("page") << QByteArray("<html>not found</html>") << QString();
        QTest::newRow("empty") << QByteArray() << QString();
    }
    void looksAtTheBytes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, mimeTypeName);
        const std::optional<PictureFormat> format = pictureFormat(bytes);
        QCOMPARE(format ? mimeType(*format) : QString(), mimeTypeName);
        QCOMPARE(static_cast<bool>(decodeSquare(bytes, 4)), !mimeTypeName.isEmpty());
    }

    void givesTheMiddleSquare_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("side");
        QTest::addColumn<int>("expected");
        QTest::newRow("large") << QSize(2000, 2000) << 300 << 300;
        QTest::newRow("wide") << QSize(1000, 500) << 100 << 100;
        QTest::newRow("high") << QSize(500, 1000) << 100 << 100;
        QTest::newRow("small stays small") << QSize(40, 40) << 300 << 40;
        QTest::newRow("a line") << QSize(3000, 1) << 300 << 1;
        QTest::newRow("senseless size") << QSize(40, 40) << -5 << 1;
    }
    void givesTheMiddleSquare()
    {
        QFETCH(QSize, size);
        QFETCH(int, side);
        QFETCH(int, expected);
        for (const char *format : {"jpg", "png"}) {
            const Result<QImage> image = decodeSquare(halves(size, format), side);
            QVERIFY2(image, format);
            QCOMPARE(image->size(), QSize(expected, expected));
            if (expected < 20)
                continue;
            QVERIFY(image->pixelColor(1, 1).red() > 200); // the border between the halves stays in the middle
            QVERIFY(image->pixelColor(expected - 2, expected - 2).blue() > 200);
        }
    }

    void refusesBeforeItUnpacks_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<FailureKind>("kind");
        using enum FailureKind;
        const QByteArray jpeg = coverBytes({64, 64}, Qt::red, "jpg");
        const QByteArray png = coverBytes({64, 64}, Qt::red, "png");
        QTest::newRow("PNG of 10,000 x 10,000") << pngClaiming(10'000, 10'000) << Unsupported;
        QTest::newRow("PNG of half a million each way") << pngClaiming(500'000, 500'000) << Unsupported;
        QTest::newRow("JPEG of 65,000 x 65,000") << jpegClaiming(65'000, 65'000) << Unsupported;
        QTest::newRow("progressive JPEG of 8,000 x 8,000") << jpegClaiming(8000, 8000, '\xc2') << Unsupported;
        QTest::newRow("JPEG of a thousand passes") << withScans(jpeg, 1000) << Unsupported;
        QTest::newRow("more bytes than any cover") << png + QByteArray(65 << 20, 'x') << Unsupported;
        QTest::newRow("PNG cut off") << png.first(60) << Malformed;
        QTest::newRow("JPEG without a picture") << jpeg.first(20) << Malformed;
        QTest::newRow("JPEG of no width") << jpegClaiming(0, 16) << Malformed;
        QTest::newRow("noise with the right start")
            << QByteArray("\x89PNG\r\n\x1a\nxxxxxxxxxxxxxxx") << Malformed;
    }
    void refusesBeforeItUnpacks()
    {
        QFETCH(QByteArray, bytes);
        const Result<QImage> square = decodeSquare(bytes, 300);
        QVERIFY(!square);
        QTEST(square.failure().kind, "kind");
        QVERIFY(!decodeWhole(bytes));
    }

    void aGiantPhotographIsShrunkWhileItIsUnpacked()
    {
        // Held whole it would take more than DecodeLimits::wholePixels allows.
        const QByteArray giant = coverBytes({5000, 5000}, Qt::red, "jpg");
        const Result<QImage> square = decodeSquare(giant, 384);
        QVERIFY(square);
        QCOMPARE(square->size(), QSize(384, 384));
        const DecodeLimits limits{.wholePixels = 250'000};
        const Result<QImage> whole = decodeWhole(giant, limits);
        QVERIFY(whole);
        QCOMPARE(whole->size(), QSize(500, 500));
    }

    void everyTruncationIsSurvived()
    {
        for (const char *format : {"jpg", "png", "bmp"}) {
            const QByteArray whole = halves({32, 32}, format);
            for (qsizetype length = 0; length < whole.size(); length += 7) {
                const Result<QImage> image = decodeSquare(whole.first(length), 16);
                QVERIFY(!image || image->width() <= 32);
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_ArtworkDecoder)
#include "tst_ArtworkDecoder.moc"
