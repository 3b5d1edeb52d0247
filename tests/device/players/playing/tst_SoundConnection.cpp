// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/PrivateSound.h"
#include "device/players/playing/ApplicationMusicPlayer.h"
#include "support/Test.h"

/// On a device without a sound server at first; a program of its own, for the multimedia library looks only
/// once.
class tst_SoundConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysThatItDoesNotPlayUntilThereIsAServer()
    {
        PrivateSound server; // not started
        const QTemporaryDir folder;
        const QString tone = folder.filePath(u"tone.mp3"_s);
        QVERIFY(makeTone(tone, 30));
        ApplicationMusicPlayer player([tone](PersistentID) { return tone.toUtf8(); });
        const MediaItem song{.playbackDuration = 30, .persistentID = PersistentID{1}};

        player.setQueue({song});
        player.prepareToPlay();
        player.play();
        QTest::qWait(50); // for what is found out behind our back
        QCOMPARE(player.playbackState(), PlaybackState::Stopped);
        QCOMPARE(player.nowPlayingItem(), std::optional(song));
        QVERIFY(player.duration() >= 30s && player.duration() < 31s);
        player.seek(10s);
        player.pause();
        player.stop();
        QCOMPARE(player.position(), 0ms);

        QVERIFY(server.start());
        player.play();
        QTRY_VERIFY(player.position() > 100ms);
    }
};

QTEST_GUILESS_MAIN(tst_SoundConnection)
#include "tst_SoundConnection.moc"
