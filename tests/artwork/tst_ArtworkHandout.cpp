// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkDrag.h"
#include "artwork/ArtworkFiles.h"
#include "artwork/ArtworkMimeData.h"
#include "support/Covers.h"

#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTest>

using namespace trackwise;

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
    void namesAreGoodOnEveryDisk_data()
    {
        QTest::addColumn<QString>("artist");
        QTest::addColumn<QString>("album");
        QTest::addColumn<QString>("name");
        QTest::newRow("both") << u"The Quiet Machines"_qs << u"Paper Satellites"_qs
                              << u"The Quiet Machines - Paper Satellites.jpg"_qs;
        QTest::newRow("no album") << u"The Quiet Machines"_qs << QString() << u"The Quiet Machines.jpg"_qs;
        QTest::newRow("neither") << QString() << QString() << u"Artwork.jpg"_qs;
        QTest::newRow("out of the folder") << u"../../etc"_qs << u"passwd/"_qs << u"etc - passwd.jpg"_qs;
        QTest::newRow("only dots") << u"..."_qs << u"."_qs << u"Artwork.jpg"_qs;
        QTest::newRow("hidden") << u".hidden"_qs << QString() << u"hidden.jpg"_qs;
        QTest::newRow("control characters") << u"a\nb\u0007"_qs << u"c\u202ed"_qs << u"a b - c d.jpg"_qs;
        QTest::newRow("reserved elsewhere")
            << u"AC/DC: Who?"_qs << u"<Live>"_qs << u"AC DC Who - Live.jpg"_qs;
        QTest::newRow("other scripts")
            << u"椎名林檎"_qs << u"勝訴ストリップ"_qs << u"椎名林檎 - 勝訴ストリップ.jpg"_qs;
    }
    void namesAreGoodOnEveryDisk()
    {
        QFETCH(QString, artist);
        QFETCH(QString, album);
        QTEST(artworkFileName(artist, album, QStringLiteral("jpg")), "name");
    }

    void aLongNameIsCutBetweenCharacters()
    {
        const QString name = artworkFileName(QStringLiteral("\U0001F3B5").repeated(100), {}, u"jpg"_qs);
        QVERIFY(name.toUtf8().size() < 255);
        QVERIFY(name.endsWith(QStringLiteral("\U0001F3B5.jpg")));
    }

    void filesStayUntilTheEnd()
    {
        const QTemporaryDir cache;
        QString folder;
        {
            ArtworkFiles files(cache.filePath(QStringLiteral("new")));
            const auto first = files.store("one", "key 1", QStringLiteral("Same.png"));
            const auto second = files.store("two", "key 2", QStringLiteral("Same.png"));
            QVERIFY(first && second && *first != *second);
            QCOMPARE(files.store("one", "key 1", QStringLiteral("Same.png")), first);
            QFile file(first->toLocalFile());
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readAll(), QByteArray("one"));
            folder = QFileInfo(file).path();
        }
        QVERIFY(!QFileInfo::exists(folder));
        ArtworkFiles nowhere(QStringLiteral("/proc/no"));
        QVERIFY(!nowhere.store("one", "key", QStringLiteral("a.png")));
    }

    void offersPictureBytesAndFile()
    {
        const QByteArray jpeg = coverBytes({8, 6}, Qt::red, "jpg");
        const QUrl file(QStringLiteral("file:///tmp/A%20-%20B.jpg"));
        const ArtworkMimeData data(
            {.original = jpeg, .format = PictureFormat::Jpeg, .file = file, .png = ready(pngBytes(jpeg))});
        QCOMPARE(data.formats().mid(0, 3),
                 (QStringList{u"image/png"_qs, u"image/jpeg"_qs, u"text/uri-list"_qs}));
        QVERIFY(isOurArtwork(data));
        QCOMPARE(data.data(QStringLiteral("image/jpeg")), jpeg);
        QCOMPARE(QImage::fromData(data.data(QStringLiteral("image/png")), "png").size(), QSize(8, 6));
        QCOMPARE(data.urls(), QList{file});
        QVERIFY(data.hasFormat(QStringLiteral("image/png")));
        QVERIFY(!data.hasFormat(QStringLiteral("image/bmp")));
    }

    void aPngIsHandedOutAsItIs()
    {
        const QByteArray png = coverBytes({8, 8}, Qt::red, "png");
        const ArtworkMimeData data(
            {.original = png, .format = PictureFormat::Png, .png = ready(pngBytes(png))});
        QCOMPARE(data.formats().front(), u"image/png"_qs);
        QVERIFY(!data.hasUrls());
        QCOMPARE(data.data(QStringLiteral("image/png")), png);
    }

    void copyingOffersTheWholePicture()
    {
        const QTemporaryDir cache;
        ArtworkFiles files(cache.path());
        ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); });
        ArtworkDrag drag(loader, files);
        QGuiApplication::clipboard()->setText(QStringLiteral("before"));

        MediaItem song;
        drag.copy(song); // has no cover
        song.artwork = std::make_shared<MemoryArtwork>("broken");
        drag.copy(song);
        QVERIFY(loader.pool().waitForDone());
        QCoreApplication::processEvents();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));

        const QByteArray jpeg = coverBytes({1500, 1400}, Qt::red, "jpg");
        song.artwork = std::make_shared<MemoryArtwork>(jpeg);
        drag.copy(song);
        QTRY_VERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat(QStringLiteral("image/png")));
        const QMimeData *offered = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(QImage::fromData(offered->data(QStringLiteral("image/png"))).size(), QSize(1500, 1400));
        QCOMPARE(offered->data(QStringLiteral("image/jpeg")), jpeg);
        QVERIFY(!offered->hasUrls());
    }
};

QTEST_MAIN(tst_ArtworkHandout)
#include "tst_ArtworkHandout.moc"
