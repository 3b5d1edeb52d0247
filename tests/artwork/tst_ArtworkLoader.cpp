// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkLoader.h"
#include "support/Covers.h"
#include "support/Test.h"

namespace {

struct Loader : ArtworkLoader
{
    /// As it is made, without a library behind it.
    explicit Loader(
        qsizetype cacheBytes = ArtworkCache::defaultLimit,
        Resolver resolver = [](PersistentID) { return ArtworkPtr(); })
        : ArtworkLoader(std::move(resolver), cacheBytes)
    {}
    QImage squareAt(const QString &address, int side, bool isCancelled = false)
    {
        return square(*artworkReference(address), side, std::make_shared<std::atomic<bool>>(isCancelled));
    }
    QImage squareOf(const MediaItem &song, int side, bool isCancelled = false)
    {
        return squareAt(address(song), side, isCancelled);
    }
};

MediaItem songWith(std::uint64_t id, std::shared_ptr<MemoryArtwork> artwork)
{
    return {.persistentID = {id}, .artwork = std::move(artwork)};
}

QColor middle(const QImage &image)
{
    return image.pixelColor(image.rect().center());
}

} // namespace

class tst_ArtworkLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesTheCoversOfTheLibraryAndOfSongsThatAreHeld()
    {
        const ArtworkPtr red = cover(Qt::red);
        Loader loader(ArtworkCache::defaultLimit,
                      [red](PersistentID id) { return id.value == 1 ? red : nullptr; });
        QCOMPARE(middle(loader.squareAt(artworkAddress({PersistentID{1}, red->key()}), 64)), QColor(Qt::red));
        QVERIFY(loader.squareAt(artworkAddress({PersistentID{2}, "unknown"}), 64).isNull());

        std::optional<MediaItem> stranger = songWith(0, cover(Qt::blue, {500, 500}));
        const QString address = loader.address(*stranger);
        QCOMPARE(middle(loader.squareAt(address, 384)), QColor(Qt::blue));
        stranger.reset(); // its cover goes with it
        QVERIFY(loader.squareAt(address, 64).isNull());
        QVERIFY(!artworkReference(u"image://artwork/nonsense"_s));
        QCOMPARE(loader.address(songWith(1, nullptr)), QString());
    }

    void aCoverIsReadOnceForSizesThatAreClose()
    {
        const auto artwork = cover(Qt::red, {500, 500});
        Loader loader;
        for (const int side : {300, 299, 280, 260, 384})
            QCOMPARE(loader.squareOf(songWith(1, artwork), side).width(), side);
        QCOMPARE(artwork->reads.load(), 1);
        QCOMPARE(loader.squareOf(songWith(1, artwork), 385).width(), 385);
        QCOMPARE(artwork->reads.load(), 2);
        QCOMPARE(loader.squareOf(songWith(1, artwork), 4000).width(), 500);
    }

    void aBrokenCoverIsTriedOnce()
    {
        const auto artwork = std::make_shared<MemoryArtwork>("\x89PNG\r\n\x1a\nbroken");
        Loader loader;
        for (int i = 0; i < 3; ++i)
            QVERIFY(loader.squareOf(songWith(1, artwork), 300).isNull());
        QCOMPARE(artwork->reads.load(), 1);
    }

    void theCacheKeepsWhatWasUsedLastWithinItsLimit()
    {
        constexpr qsizetype oneCover = qsizetype{64} * 64 * 4;
        Loader loader(4 * oneCover);
        std::vector<std::shared_ptr<MemoryArtwork>> covers;
        const auto show = [&](size_t i) {
            QVERIFY(!loader.squareOf(songWith(i + 1, covers.at(i)), 64).isNull());
            QVERIFY(loader.cache().usedBytes() > oneCover && loader.cache().usedBytes() <= 4 * oneCover);
        };
        for (int i = 0; i < 20; ++i) {
            covers.push_back(cover(QColor::fromHsv(i * 17, 255, 255)));
            show(static_cast<size_t>(i));
            show(0); // the one in use stays
        }
        QCOMPARE(covers.front()->reads.load(), 1);
        show(1);
        QCOMPARE(covers.at(1)->reads.load(), 2);
    }

    void whatNobodyWantsIsNotRead()
    {
        const auto artwork = cover(Qt::red);
        QVERIFY(Loader().squareOf(songWith(1, artwork), 64, true).isNull());
        QCOMPARE(artwork->reads.load(), 0);
    }
};

QTEST_MAIN(tst_ArtworkLoader)
#include "tst_ArtworkLoader.moc"
