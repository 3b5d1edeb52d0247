// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkDecoder.h"
#include "support/Covers.h"
#include "support/Test.h"

#include <QColorSpace>
#include <QPainter>
#include <QtEndian>

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

/// The same of a BMP.
QByteArray bmpClaiming(qint32 width, qint32 height)
{
    QByteArray bytes = coverBytes({1, 1}, Qt::red, "bmp");
    qToLittleEndian(width, bytes.data() + 18);
    qToLittleEndian(height, bytes.data() + 22);
    return bytes;
}

/// Black, but red at the top left and blue at the bottom right.
QByteArray quarters(QSize size, const char *format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.fillRect(QRect({}, size / 2), Qt::red);
    painter.fillRect(QRect({size.width() / 2, size.height() / 2}, size), Qt::blue);
    painter.end();
    return encoded(image, format);
}

} // namespace

class tst_ArtworkDecoder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodesWhatItKnows()
    {
        for (const char *format : {"jpg", "png", "bmp"})
            QCOMPARE(decodeSquare(coverBytes({4, 4}, Qt::red, format), 4)->format(), QImage::Format_RGB32);
        const QByteArray drawing("<svg xmlns='http://www.w3.org/2000/svg'/>");
        for (const QByteArray &bytes : {drawing, QByteArray()})
            QCOMPARE(decodeSquare(bytes, 4).failure().kind, FailureKind::Unsupported);
    }

    void givesTheMiddleSquare()
    {
        using Case = std::tuple<QSize, int, int>;
        for (const auto &[size, side, expected] :
             {Case{{2000, 2000}, 300, 300}, Case{{1000, 500}, 100, 100}, Case{{500, 1000}, 100, 100},
              Case{{40, 40}, 300, 40}, Case{{3000, 1}, 300, 1}, Case{{40, 40}, -5, 1}}) {
            for (const char *format : {"jpg", "png"}) {
                const Result<QImage> image = decodeSquare(quarters(size, format), side);
                QVERIFY2(image, format);
                QCOMPARE(image->size(), QSize(expected, expected));
                if (expected < 20)
                    continue;
                const int before = expected * 2 / 5; // the border between the quarters stays in the middle
                const int after = expected * 3 / 5;
                QVERIFY(image->pixelColor(before, before).red() > 200);
                QVERIFY(image->pixelColor(after, after).blue() > 200);
                QVERIFY(qGray(image->pixel(before, after)) < 20 && qGray(image->pixel(after, before)) < 20);
            }
        }
    }

    void isUprightAndInSrgb()
    {
        QByteArray turned = quarters({40, 20}, "jpg");
        // Exif, little endian, with one tag: turned by a quarter to the right
        turned.insert(2, QByteArray::fromHex("ffe1002245786966000049492a0008000000"
                                             "010012010300010000000600000000000000"));
        const Result<QImage> upright = decodeWhole(turned);
        QCOMPARE(upright->size(), QSize(20, 40));
        QVERIFY(upright->pixelColor(15, 5).red() > 200);
        QImage red(1, 1, QImage::Format_RGB32);
        red.fill(QColor(200, 100, 50));
        red.setColorSpace(QColorSpace::AdobeRgb);
        QCOMPARE(decodeWhole(encoded(red, "png"))->pixel(0, 0),
                 red.convertedToColorSpace(QColorSpace::SRgb).pixel(0, 0));
    }

    void refusesBeforeItUnpacks()
    {
        using enum FailureKind;
        const QByteArray jpeg = coverBytes({64, 64}, Qt::red, "jpg");
        const QByteArray png = coverBytes({64, 64}, Qt::red, "png");
        const QByteArray pass = QByteArray::fromHex("ffda000801010000003f0000");
        using Case = std::tuple<const char *, QByteArray, FailureKind>;
        for (const auto &[name, bytes, kind] :
             {Case{"BMP of 10,000 x 10,000", bmpClaiming(10'000, 10'000), Unsupported},
              Case{"JPEG of 65,000 x 65,000", jpegClaiming(65'000, 65'000), Unsupported},
              Case{"progressive JPEG of 8,000 x 8,000", jpegClaiming(8000, 8000, '\xc2'), Unsupported},
              Case{"JPEG of a pass too many", jpeg + pass.repeated(32), Unsupported},
              Case{"more bytes than any cover", png + QByteArray(65 << 20, 'x'), Unsupported},
              Case{"PNG cut off", png.first(60), Malformed},
              Case{"JPEG without a picture", jpeg.first(20), Malformed},
              Case{"JPEG of no width", jpegClaiming(0, 16), Malformed},
              Case{"noise with the right start", "\x89PNG\r\n\x1a\nxxxxxxxxxxxxxxx", Malformed}}) {
            const Result<QImage> square = decodeSquare(bytes, 300);
            QVERIFY2(!square && square.failure().kind == kind, name);
            QVERIFY2(!decodeWhole(bytes), name);
        }
        QVERIFY(decodeWhole(jpeg + pass.repeated(31))); // its own is the first
        QVERIFY(decodeWhole(png, {.encodedBytes = png.size(), .wholePixels = qint64{64} * 64}));
        QVERIFY(!decodeWhole(png, {.encodedBytes = png.size() - 1}));
        QVERIFY(!decodeWhole(png, {.wholePixels = qint64{64} * 64 - 1}));
    }

    void aGiantPhotographIsShrunkWhileItIsUnpacked()
    {
        // Held whole it would take more than DecodeLimits::wholePixels allows.
        const QByteArray giant = coverBytes({5000, 5000}, Qt::red, "jpg");
        const Result<QImage> square = decodeSquare(giant, 384);
        QVERIFY(square);
        QCOMPARE(square->size(), QSize(384, 384));
        QCOMPARE(decodeWhole(giant, {.wholePixels = 250'000})->size(), QSize(500, 500));
        QCOMPARE(decodeWhole(coverBytes({3000, 1}, Qt::red, "jpg"), {.wholePixels = 1000})->height(), 1);
    }

    void everyTruncationIsSurvived()
    {
        for (const char *format : {"jpg", "png", "bmp"}) {
            const QByteArray whole = quarters({32, 32}, format);
            for (qsizetype length = 0; length < whole.size(); length += 7) {
                const Result<QImage> image = decodeSquare(whole.first(length), 16);
                QVERIFY(!image || image->width() <= 32);
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_ArtworkDecoder)
#include "tst_ArtworkDecoder.moc"
