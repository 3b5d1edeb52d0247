// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkImageProvider.h"
#include "artwork/ArtworkLoader.h"
#include "support/Covers.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

using namespace trackwise;

namespace {

CancelFlag notCancelled()
{
    return std::make_shared<std::atomic<bool>>(false);
}

MediaItem songWith(std::uint64_t id, std::shared_ptr<MemoryArtwork> artwork)
{
    MediaItem song;
    song.persistentID = {id};
    song.artwork = std::move(artwork);
    return song;
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
    const QString id = address.mid(QStringLiteral("image://artwork/").size());
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

        std::optional<MediaItem> stranger = songWith(0, cover(Qt::blue));
        const QString address = loader.address(*stranger);
        QCOMPARE(middle(answerOf(provider, address)), QColor(Qt::blue));
        QVERIFY(answerOf(provider, artworkAddress({PersistentID{2}, "unknown"})).isNull());
        QVERIFY(answerOf(provider, QStringLiteral("image://artwork/nonsense")).isNull());
        QCOMPARE(loader.address(songWith(1, nullptr)), QString());
    }

    void aStrangersCoverGoesWithTheStranger()
    {
        ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); });
        QString address;
        {
            const MediaItem stranger = songWith(0, cover(Qt::blue));
            address = loader.address(stranger);
        }
        QVERIFY(loader.square(*artworkReference(address), 64, notCancelled()).isNull());
    }

    void aCoverIsReadOnceForSizesThatAreClose()
    {
        const auto artwork = cover(Qt::red, {500, 500});
        ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); });
        const MediaItem song = songWith(1, artwork);
        const ArtworkReference reference = *artworkReference(loader.address(song));
        for (const int side : {300, 299, 280, 260, 384})
            QCOMPARE(loader.square(reference, side, notCancelled()).width(), side);
        QCOMPARE(artwork->reads.load(), 1);
    }

    void aBrokenCoverIsTriedOnce()
    {
        const auto artwork = std::make_shared<MemoryArtwork>("\x89PNG\r\n\x1a\nbroken");
        ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); });
        const MediaItem song = songWith(1, artwork);
        const ArtworkReference reference = *artworkReference(loader.address(song));
        for (int i = 0; i < 3; ++i)
            QVERIFY(loader.square(reference, 300, notCancelled()).isNull());
        QCOMPARE(artwork->reads.load(), 1);
    }

    void theCacheKeepsWhatWasUsedLastWithinItsLimit()
    {
        constexpr qsizetype oneCover = qsizetype{64} * 64 * 4;
        ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); }, 4 * oneCover);
        std::vector<std::shared_ptr<MemoryArtwork>> covers;
        const auto show = [&](size_t i) {
            const MediaItem song = songWith(i + 1, covers.at(i));
            QVERIFY(!loader.square(*artworkReference(loader.address(song)), 64, notCancelled()).isNull());
            QVERIFY(loader.cache().usedBytes() <= 4 * oneCover);
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
        ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); });
        const MediaItem song = songWith(1, artwork);
        const auto cancelled = std::make_shared<std::atomic<bool>>(true);
        QVERIFY(loader.square(*artworkReference(loader.address(song)), 64, cancelled).isNull());
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
        ArtworkLoader loader([](PersistentID) { return ArtworkPtr(); });
        ArtworkImageProvider provider(loader);
        const MediaItem song = songWith(1, slow);
        const QString id = loader.address(song).mid(QStringLiteral("image://artwork/").size());
        std::unique_ptr<QQuickImageResponse> dropped(provider.requestImageResponse(id, {64, 64}));
        const std::unique_ptr<QQuickImageResponse> cancelled(provider.requestImageResponse(id, {64, 64}));
        QSignalSpy finished(cancelled.get(), &QQuickImageResponse::finished);
        reading.acquire(2);
        dropped.reset();
        cancelled->cancel();
        goOn.release(2);
        QVERIFY(finished.wait()); // the engine waits for it even so
        QCOMPARE(cancelled->textureFactory(), nullptr);
    }
};

QTEST_MAIN(tst_ArtworkLoader)
#include "tst_ArtworkLoader.moc"
