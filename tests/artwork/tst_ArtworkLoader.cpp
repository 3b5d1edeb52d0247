// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkImageProvider.h"
#include "artwork/ArtworkLoader.h"
#include "support/Covers.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

namespace {

/// What has no library behind it.
struct Loader : ArtworkLoader
{
    explicit Loader(qsizetype cacheBytes = ArtworkCache::defaultLimit)
        : ArtworkLoader([](PersistentID) { return ArtworkPtr(); }, cacheBytes)
    {}
    /// The cover of @p song, by its address.
    QImage squareOf(const MediaItem &song, int side, bool isCancelled = false)
    {
        return square(*artworkReference(address(song)), side,
                      std::make_shared<std::atomic<bool>>(isCancelled));
    }
};

MediaItem songWith(std::uint64_t id, std::shared_ptr<MemoryArtwork> artwork)
{
    return {.persistentID = {id}, .artwork = std::move(artwork)};
}

std::shared_ptr<MemoryArtwork> cover(const QColor &color, QSize size = {100, 100})
{
    return std::make_shared<MemoryArtwork>(coverBytes(size, color, "png"));
}

QColor middle(const QImage &image)
{
    return image.pixelColor(image.rect().center());
}

/// Waits for the answer as the engine does.
QImage answerOf(ArtworkImageProvider &provider, const QString &address, QSize size = {64, 64})
{
    const QString id = address.mid(u"image://artwork/"_s.size());
    const std::unique_ptr<QQuickImageResponse> response(provider.requestImageResponse(id, size));
    QSignalSpy finished(response.get(), &QQuickImageResponse::finished);
    if (!finished.wait())
        return {};
    const std::unique_ptr<QQuickTextureFactory> factory(response->textureFactory());
    return factory ? factory->image() : QImage();
}

} // namespace

class tst_ArtworkLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesTheCoversOfTheLibraryAndOfSongsThatAreHeld()
    {
        const ArtworkPtr red = cover(Qt::red);
        ArtworkLoader loader([red](PersistentID id) { return id.value == 1 ? red : nullptr; });
        ArtworkImageProvider provider(loader);
        QCOMPARE(middle(answerOf(provider, artworkAddress({PersistentID{1}, red->key()}))), QColor(Qt::red));

        std::optional<MediaItem> stranger = songWith(0, cover(Qt::blue, {500, 500}));
        const QString address = loader.address(*stranger);
        const QImage unsized = answerOf(provider, address, {});
        QCOMPARE(middle(unsized), QColor(Qt::blue));
        QCOMPARE(unsized.width(), 384);
        stranger.reset(); // its cover goes with it
        QVERIFY(answerOf(provider, address).isNull());
        QVERIFY(answerOf(provider, artworkAddress({PersistentID{2}, "unknown"})).isNull());
        QVERIFY(answerOf(provider, u"image://artwork/nonsense"_s).isNull());
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

    void aResponseMayGoWhileItsCoverIsBeingRead()
    {
        QSemaphore reading;
        QSemaphore goOn;
        const auto slow = cover(Qt::red);
        slow->beforeRead = [&] {
            reading.release();
            goOn.acquire();
        };
        Loader loader;
        ArtworkImageProvider provider(loader);
        const MediaItem song = songWith(1, slow);
        const QString id = loader.address(song).mid(u"image://artwork/"_s.size());
        std::unique_ptr<QQuickImageResponse> dropped(provider.requestImageResponse(id, {64, 64}));
        const std::unique_ptr<QQuickImageResponse> cancelled(provider.requestImageResponse(id, {64, 64}));
        QSignalSpy finished(cancelled.get(), &QQuickImageResponse::finished);
        reading.acquire(2);
        dropped.reset();
        cancelled->cancel();
        goOn.release(2);
        QVERIFY(finished.wait()); // the engine waits for it even so
        QCOMPARE(cancelled->textureFactory(), nullptr);
        QVERIFY(loader.pool().waitForDone());
        QCOMPARE(loader.cache().usedBytes(), 0); // neither was decoded
    }
};

QTEST_MAIN(tst_ArtworkLoader)
#include "tst_ArtworkLoader.moc"
