// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkDrag.h"
#include "artwork/ArtworkFiles.h"
#include "artwork/ArtworkMimeData.h"
#include "support/Covers.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSignalSpy>

namespace {

std::shared_future<QByteArray> ready(const QByteArray &bytes)
{
    std::promise<QByteArray> promise;
    promise.set_value(bytes);
    return promise.get_future().share();
}

} // namespace

class tst_ArtworkHandout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreGoodOnEveryDisk()
    {
        const auto name = [](const QString &artist, const QString &album) {
            return artworkFileName(artist, album, u"jpg"_s);
        };
        QCOMPARE(name(u"The Quiet Machines"_s, u"Paper Satellites"_s),
                 u"The Quiet Machines - Paper Satellites.jpg"_s);
        QCOMPARE(name(u"The Quiet Machines"_s, {}), u"The Quiet Machines.jpg"_s);
        QCOMPARE(name({}, {}), u"Artwork.jpg"_s);
        QCOMPARE(name(u"../../etc"_s, u"passwd/"_s), u"etc - passwd.jpg"_s);
        QCOMPARE(name(u"..."_s, u"."_s), u"Artwork.jpg"_s);
        QCOMPARE(name(u". .hidden"_s, u"dots. ."_s), u"hidden - dots.jpg"_s);
        QCOMPARE(name(u"a\nb\u0007"_s, u"c\u202ed\u2028e\u2029f"_s), u"a b - c d e f.jpg"_s);
        QCOMPARE(name(u"AC/DC: Who?"_s, u"<Live>"_s), u"AC DC Who - Live.jpg"_s); // reserved elsewhere
        QCOMPARE(name(u"椎名林檎"_s, u"勝訴ストリップ"_s), u"椎名林檎 - 勝訴ストリップ.jpg"_s);
        QCOMPARE(name(QString(300, u'x'), {}), QString(200, u'x') + u".jpg"_s); // of the 255 bytes of a name
        const QString note = u"\U0001F3B5"_s;                                   // cut between characters
        QCOMPARE(name(u"x"_s + note.repeated(100), {}), u"x"_s + note.repeated(49) + u".jpg"_s);
    }

    void filesStayUntilTheEnd()
    {
        const QTemporaryDir cache;
        QString folder;
        {
            ArtworkFiles files(cache.filePath(u"new"_s));
            const auto first = files.store("one", "key 1", u"Same.png"_s);
            const auto second = files.store("two", "key 2", u"Same.png"_s);
            QVERIFY(first && second && *first != *second);
            QCOMPARE(files.store("one", "key 1", u"Same.png"_s), first);
            QCOMPARE(contentsOf(first->toLocalFile()), QByteArray("one"));
            folder = QFileInfo(first->toLocalFile()).path();
        }
        QVERIFY(!QFileInfo::exists(folder));
        ArtworkFiles nowhere(u"/proc/no"_s);
        QVERIFY(!nowhere.store("one", "key", u"a.png"_s));
    }

    void offersPictureBytesAndFile()
    {
        const QByteArray jpeg = coverBytes({8, 6}, Qt::red, "jpg");
        const QUrl file(u"file:///tmp/A%20-%20B.jpg"_s);
        const ArtworkMimeData data(
            {.original = jpeg, .format = PictureFormat::Jpeg, .file = file, .png = ready(pngBytes(jpeg))});
        QCOMPARE(data.formats().mid(0, 3),
                 (QStringList{u"image/png"_s, u"image/jpeg"_s, u"text/uri-list"_s}));
        QVERIFY(isOurArtwork(data));
        QCOMPARE(data.data(u"image/jpeg"_s), jpeg);
        QCOMPARE(QImage::fromData(data.data(u"image/png"_s), "png").size(), QSize(8, 6));
        QCOMPARE(data.urls(), QList{file});
        QVERIFY(data.hasFormat(u"image/png"_s));
        QVERIFY(!data.hasFormat(u"image/bmp"_s));
        const QByteArray png = coverBytes({8, 8}, Qt::red, "png");
        QCOMPARE(pngBytes(png), png); // as it is
        const ArtworkMimeData fromPng({.original = png, .format = PictureFormat::Png, .png = ready(png)});
        QVERIFY(!fromPng.hasUrls() && !fromPng.hasFormat(u"image/jpeg"_s));
    }

    void copyingOffersTheWholePicture()
    {
        const QTemporaryDir cache;
        ArtworkFiles files(cache.path());
        ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); });
        ArtworkDrag drag(loader, files);
        QGuiApplication::clipboard()->setText(u"before"_s);

        const auto songOf = [](const QByteArray &bytes) {
            return MediaItem{.artwork = std::make_shared<MemoryArtwork>(bytes)};
        };
        const QByteArray jpeg = coverBytes({1500, 1400}, Qt::red, "jpg");
        const QSignalSpy carries(&drag, &ArtworkDrag::isCarryingChanged);
        drag.start({}, {}); // has no cover
        drag.copy({});
        drag.start(songOf("broken"), {});
        drag.copy(songOf("broken"));
        QVERIFY(loader.pool().waitForDone());
        QCoreApplication::processEvents();
        drag.start(songOf(jpeg), {.side = 10}); // let go before it has been read
        drag.cancel();
        QVERIFY(loader.pool().waitForDone());
        QCoreApplication::processEvents();
        QCOMPARE(carries.size(), 0);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"before"_s);
        drag.copy(songOf(jpeg));
        QTRY_VERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat(u"image/png"_s));
        const QMimeData *offered = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(QImage::fromData(offered->data(u"image/png"_s)).size(), QSize(1500, 1400));
        QCOMPARE(offered->data(u"image/jpeg"_s), jpeg);
        QVERIFY(!offered->hasUrls());
    }
};

QTEST_MAIN(tst_ArtworkHandout)
#include "tst_ArtworkHandout.moc"
