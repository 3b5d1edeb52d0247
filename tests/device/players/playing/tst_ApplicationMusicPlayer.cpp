// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/PrivateSound.h"
#include "device/players/playing/ApplicationMusicPlayer.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QFile>
#include <QSignalSpy>

#include <unistd.h>

namespace {

using Songs = QList<std::uint64_t>;

constexpr std::uint64_t shortSong = 1;
constexpr std::uint64_t longSong = 2;
constexpr std::uint64_t missingSong = 3;
constexpr std::uint64_t noMusic = 4;
constexpr std::uint64_t lostSong = 5; ///< no path at all
// The first is not UTF-8, as names in old collections.
constexpr std::array fileNames{"short \xff.flac", "long.m4a", "missing.mp3", "text.mp3"};

} // namespace

class tst_ApplicationMusicPlayer : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    PrivateSound m_sound;
    std::unique_ptr<ApplicationMusicPlayer> m_player;
    Songs m_played;
    Songs m_skipped;

    [[nodiscard]] std::optional<QByteArray> pathOf(PersistentID id) const
    {
        if (id.value > fileNames.size())
            return std::nullopt;
        return m_folder.path().toUtf8() + '/' + fileNames.at(id.value - 1);
    }
    void setQueue(std::initializer_list<std::uint64_t> songs)
    {
        std::vector<MediaItem> queue;
        for (const auto song : songs)
            queue.push_back({.persistentID = PersistentID{song}});
        m_player->setQueue(queue);
    }
    void load(std::initializer_list<std::uint64_t> songs)
    {
        m_player->stop();
        setQueue(songs);
        m_player->prepareToPlay();
    }
    [[nodiscard]] std::uint64_t current() const
    {
        const auto item = m_player->nowPlayingItem();
        return item ? item->persistentID.value : 0;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_sound.start());
        const QString tone = m_folder.filePath(u"short.flac"_s);
        QVERIFY(makeTone(tone, 1.2));
        QCOMPARE(::rename(QFile::encodeName(tone).constData(), pathOf({shortSong})->constData()), 0);
        QVERIFY(makeTone(QString::fromUtf8(*pathOf({longSong})), 60));
        writeFile(QString::fromUtf8(*pathOf({noMusic})), "This is no music.\n");
    }
    void init()
    {
        m_played.clear();
        m_skipped.clear();
        m_player = std::make_unique<ApplicationMusicPlayer>([this](PersistentID id) { return pathOf(id); });
        connect(m_player.get(), &ApplicationMusicPlayer::songWasPlayed, this,
                [this](PersistentID id) { m_played << id.value; });
        connect(m_player.get(), &ApplicationMusicPlayer::songWasSkipped, this,
                [this](PersistentID id) { m_skipped << id.value; });
    }
    void cleanup() { m_player.reset(); }
    void cleanupTestCase() { ::unlink(pathOf({shortSong})->constData()); } // which Qt cannot name

    void playsPausesAndStops()
    {
        QCOMPARE(current(), 0u);
        QCOMPARE(m_player->duration(), 0ms);
        m_player->play();
        QCOMPARE(m_player->playbackState(), PlaybackState::Stopped);

        setQueue({longSong});
        QCOMPARE(current(), 0u);
        m_player->prepareToPlay();
        QCOMPARE(current(), longSong);
        QCOMPARE(m_player->playbackState(), PlaybackState::Stopped);
        m_player->play();
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        QTRY_VERIFY(m_player->position() > 100ms);
        QTRY_VERIFY(m_player->duration() >= 60s);

        m_player->pause();
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Paused);
        m_player->seek(30s);
        QTRY_VERIFY(m_player->position() >= 29s && m_player->position() <= 31s);
        m_player->play();
        QTRY_VERIFY(m_player->position() > 30s + 200ms);
        m_player->skipToBeginning();
        QTRY_VERIFY(m_player->position() < 10s);
        m_player->stop();
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Stopped);
        QCOMPARE(m_player->position(), 0ms);
        QCOMPARE(current(), longSong);
        QCOMPARE(m_played, Songs({}));
    }

    void countsASongThatEndsOnceEachTime()
    {
        load({shortSong});
        m_player->play();
        QTRY_COMPARE_WITH_TIMEOUT(m_played, Songs({shortSong}), 20'000);
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Stopped);
        QCOMPARE(current(), shortSong);

        m_player->play(); // from its beginning
        QTRY_COMPARE_WITH_TIMEOUT(m_played, Songs({shortSong, shortSong}), 20'000);
        QCOMPARE(m_skipped, Songs({}));
    }

    void goesThroughItsQueuePastFilesThatAreNoMusic()
    {
        load({missingSong, shortSong, noMusic, lostSong, longSong});
        QCOMPARE(current(), shortSong);
        m_player->play();
        QTRY_COMPARE_WITH_TIMEOUT(current(), longSong, 20'000);
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        QTRY_VERIFY(m_player->position() > 2200ms);
        QCOMPARE(m_skipped, Songs({}));
        setQueue({shortSong}); // long enough for a skip
        m_player->play();
        QCOMPARE(m_skipped, Songs({longSong}));
        QCOMPARE(current(), shortSong);
        QCOMPARE(m_played, Songs({shortSong}));
    }

    void skipsForwardsAndBack()
    {
        load({longSong, shortSong, longSong});
        const auto place = [this] { // in the queue
            return (m_player->hasPreviousItem() ? u"<%1"_s : u"|%1"_s).arg(current()) +
                   (m_player->hasNextItem() ? u'>' : u'|');
        };
        QCOMPARE(place(), u"|2>"_s);
        m_player->skipToNextItem();
        QCOMPARE(place(), u"<1>"_s);
        m_player->skipToPreviousItem();
        QCOMPARE(place(), u"|2>"_s);
        QCOMPARE(m_player->playbackState(), PlaybackState::Stopped); // nobody has asked it to play
        m_player->play();
        QTRY_VERIFY(m_player->position() > 100ms);
        QSignalSpy jumps(m_player.get(), &ApplicationMusicPlayer::didSeek);
        m_player->skipToPreviousItem(); // there is none: from its beginning
        QCOMPARE(jumps.size(), 1);
        QCOMPARE(jumps.at(0).at(0).value<std::chrono::milliseconds>(), 0ms);
        m_player->skipToNextItem();
        m_player->skipToNextItem();
        QCOMPARE(place(), u"<2|"_s);
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        m_player->skipToNextItem();
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Stopped);
    }

    void staysStoppedWithoutAFile()
    {
        for (const auto song : {missingSong, noMusic, lostSong}) {
            load({song});
            m_player->play();
            QTRY_COMPARE(m_player->playbackState(), PlaybackState::Stopped);
            QCOMPARE(current(), song);
        }
        load({longSong}); // and is not hurt by it
        m_player->play();
        QTRY_VERIFY(m_player->position() > 100ms);
    }

    void notifiesOnlyBetweenBeginAndEnd()
    {
        QSignalSpy states(m_player.get(), &MusicPlayer::playbackStateDidChange);
        QSignalSpy items(m_player.get(), &MusicPlayer::nowPlayingItemDidChange);
        load({longSong});
        m_player->play();
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        QCOMPARE(states.size() + items.size(), 0);

        m_player->beginGeneratingPlaybackNotifications();
        m_player->beginGeneratingPlaybackNotifications();
        m_player->endGeneratingPlaybackNotifications();
        m_player->pause();
        QTRY_COMPARE(states.size(), 1);
        load({shortSong});
        QTRY_COMPARE(items.size(), 1);
        m_player->endGeneratingPlaybackNotifications();
        m_player->play();
        QTRY_COMPARE(m_player->playbackState(), PlaybackState::Playing);
        QCOMPARE(states.size(), 2); // the stop before the new queue was the last
    }

    void isAsLoudAsWasSaidBefore()
    {
        for (const double volume : {0.0, 1.0}) {
            FilePlayback playback;
            playback.setVolume(volume);
            QVERIFY(playback.load(*pathOf({longSong})));
            playback.play();
            QTRY_VERIFY(playback.position() > 100ms);
            QProcess listener;
            listener.start(u"parec"_s, {u"--latency-msec=50"_s, u"--device=first.monitor"_s});
            QTRY_VERIFY(listener.bytesAvailable() > 100'000);
            listener.kill();
            QVERIFY(listener.waitForFinished());
            const QByteArray heard = listener.readAllStandardOutput();
            QCOMPARE(heard.count('\0') == heard.size(), volume == 0);
        }
    }

    void followsTheDefaultOutput()
    {
        FilePlayback playback;
        QVERIFY(playback.load(*pathOf({longSong})));
        playback.play();
        QTRY_VERIFY(playback.position() > 100ms);
        const auto streams = [this] { return m_sound.control("list short sink-inputs"); };
        const auto sinkOfStream = [&streams] { return streams().section(u'\t', 1, 1); };
        const QString before = sinkOfStream();
        QVERIFY(!before.isEmpty());

        m_sound.control("load-module module-null-sink sink_name=headphones");
        m_sound.control("set-default-sink headphones");
        QTRY_VERIFY(!sinkOfStream().isEmpty() && sinkOfStream() != before);
        QTRY_COMPARE(streams().count(u'\n'), 1);
        QCOMPARE(playback.state(), PlaybackState::Playing);
        const auto position = playback.position();
        QTRY_VERIFY(playback.position() > position + 100ms);
        QVERIFY(playback.position() < position + 5s);
    }

    void soundsAgainWhenTheSoundServerIsBack()
    {
        for (const bool wasPlaying : {true, false}) { // and asked to play before it is back, or afterwards
            init();
            load({longSong});
            m_player->play();
            QTRY_VERIFY_WITH_TIMEOUT(m_player->position() > 100ms, 20000);
            m_player->seek(20s);
            QTRY_VERIFY(m_player->position() > 20s);
            if (!wasPlaying)
                m_player->pause();
            m_sound.stop();
            QTRY_COMPARE(m_player->playbackState(), PlaybackState::Paused);
            const auto position = m_player->position();
            if (wasPlaying)
                m_player->play();
            QTest::qWait(wasPlaying ? 100 : 5100); // for longer than Qt waits
            QCOMPARE(m_player->playbackState(), PlaybackState::Paused);
            QVERIFY(position > 19s && m_player->position() == position);

            QVERIFY(m_sound.start());
            if (!wasPlaying)
                m_player->play();
            QTRY_VERIFY_WITH_TIMEOUT(m_player->position() > position + 500ms, 10000);
            QVERIFY(m_player->position() < position + 10s);
            QCOMPARE(m_sound.control("list short sink-inputs").count(u'\n'), 1);
        }
    }
};

QTEST_GUILESS_MAIN(tst_ApplicationMusicPlayer)
#include "tst_ApplicationMusicPlayer.moc"
