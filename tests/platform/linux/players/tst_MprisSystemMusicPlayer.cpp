// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/LibraryFixture.h"
#include "platform/linux/players/FakePlayer.h"
#include "platform/linux/players/MprisSystemMusicPlayer.h"
#include "platform/linux/players/PrivateSound.h"
#include "platform/linux/players/SongFile.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <memory>

using namespace trackwise;
using namespace std::chrono_literals;

namespace {

const QString appId = QStringLiteral("org.example.tester");
const QString paused = QStringLiteral("Paused");
const QString stopped = QStringLiteral("Stopped");

QString text(const char *value)
{
    return QString::fromUtf8(value);
}

} // namespace

class tst_MprisSystemMusicPlayer : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    LibraryFixture m_library;
    QList<PersistentID> m_songs; ///< number 1 first
    std::unique_ptr<MprisSystemMusicPlayer> m_system;

    void startFollowing()
    {
        m_system = std::make_unique<MprisSystemMusicPlayer>(m_library.library().matching(),
                                                            QDBusConnection::sessionBus(), appId);
        m_system->beginGeneratingPlaybackNotifications();
    }
    [[nodiscard]] bool becomesReady()
    {
        bool isReady = false;
        m_system->whenReady([&isReady] { isReady = true; });
        return QTest::qWaitFor([&isReady] { return isReady; }, 3000);
    }
    [[nodiscard]] QString title() const
    {
        const auto item = m_system->nowPlayingItem();
        return item ? item->title.value_or(QString()) : text("nothing");
    }
    /// The number of the song, or 0.
    [[nodiscard]] qsizetype song() const
    {
        const auto item = m_system->nowPlayingItem();
        return item ? m_songs.indexOf(item->persistentID) + 1 : 0;
    }
    [[nodiscard]] QString tone(int number) const
    {
        return m_folder.filePath(QStringLiteral("%1.flac").arg(number));
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run inside dbus-run-session");
        for (int number = 1; number <= 3; ++number) {
            QVERIFY(makeTone(tone(number), 3,
                             {QStringLiteral("title=Track %1").arg(number), text("artist=Somebody")}));
            const QString title = QStringList{text("One"), text("Two"), text("Three")}.at(number - 1);
            m_songs << addSongFile(m_library, QFileInfo(tone(number)).canonicalFilePath(),
                                   songTags(title, text("Band"), text("Album"), 3));
        }
    }
    void cleanup() { m_system.reset(); }

    void knowsWhatPlaysAlreadyWhenReady()
    {
        FakePlayer player(text("quiet"));
        player.set(playing(text("two"), text("BAND"), 1.5));
        QVERIFY(player.appear());
        startFollowing();
        QThread::msleep(750); // the first window takes its time: no answer is looked at meanwhile
        QVERIFY(becomesReady());
        QCOMPARE(song(), 2);
        QVERIFY(m_system->raisePlayer());
        QTRY_COMPARE(player.raised(), 1);
    }

    void isReadyWithoutABusOrPlayers()
    {
        startFollowing();
        QVERIFY(becomesReady());
        QCOMPARE(title(), text("nothing"));
        QVERIFY(!m_system->raisePlayer());

        m_system = std::make_unique<MprisSystemMusicPlayer>(m_library.library().matching(),
                                                            QDBusConnection(text("nowhere")), appId);
        QVERIFY(becomesReady());
        QCOMPARE(title(), text("nothing"));
    }

    void followsAnAlbumInMpv()
    {
        startFollowing();
        QList<qsizetype> songs;
        QList<qsizetype> played;
        connect(m_system.get(), &SystemMusicPlayer::nowPlayingItemDidChange, this,
                [this, &songs] { songs << song(); });
        connect(m_system.get(), &MprisSystemMusicPlayer::songWasPlayed, this,
                [this, &played](PersistentID id) { played << m_songs.indexOf(id) + 1; });
        QProcess mpv;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(text("XDG_CONFIG_HOME"), m_folder.path());
        mpv.setProcessEnvironment(environment);
        mpv.start(text("mpv"),
                  {text("--ao=null"), text("--no-terminal"), text("--no-video"), tone(1), tone(2), tone(3)});
        QVERIFY(mpv.waitForStarted());
        QTRY_COMPARE_WITH_TIMEOUT(played, QList<qsizetype>({1, 2, 3}), 20000);
        QTRY_COMPARE(songs, QList<qsizetype>({1, 2, 3, 0})); // and it quits
        QTRY_COMPARE(mpv.state(), QProcess::NotRunning);
    }

    void choosesAmongPlayersThatComeAndGo()
    {
        startFollowing();
        FakePlayer one(text("one"));
        FakePlayer two(text("two.instance7"));
        FakePlayer own(appId + text(".instance12"));
        FakePlayer proxy(text("playerctld"));
        own.set(playing(text("Own")));
        proxy.set(playing(text("Mirrored")));
        one.set(playing(text("First"), {}, 0, paused));
        for (FakePlayer *player : {&own, &proxy, &one})
            QVERIFY(player->appear());
        QTRY_COMPARE(title(), text("First"));
        two.set(playing(text("Second")));
        QVERIFY(two.appear());
        QTRY_COMPARE(title(), text("Second"));
        two.change({{text("PlaybackStatus"), stopped}});
        QTRY_COMPARE(title(), text("First"));
        two.change({{text("PlaybackStatus"), text("Playing")}});
        QTRY_COMPARE(title(), text("Second"));
        m_system->setPreferences({{}, {text("two")}});
        QTRY_COMPARE(title(), text("First"));
        m_system->setPreferences({});
        QTRY_COMPARE(title(), text("Second"));
        two.vanish();
        QTRY_COMPARE(title(), text("First"));
        one.vanish();
        QTRY_COMPARE(title(), text("nothing"));
        QCOMPARE(own.reads() + proxy.reads(), 0);
    }

    void readsAgainWhenAPlayerOnlySaysThatItChanged()
    {
        FakePlayer player(text("vague"));
        player.set(playing(text("Before")));
        QVERIFY(player.appear());
        startFollowing();
        QTRY_COMPARE(title(), text("Before"));
        player.set(playing(text("After")));
        player.invalidate({text("Metadata")});
        QTRY_COMPARE(title(), text("After"));
    }

    void collectsWhatComesInPieces()
    {
        startFollowing();
        FakePlayer player(text("slow"));
        player.set(playing(text("Old"), text("Band")));
        QVERIFY(player.appear());
        QTRY_COMPARE(title(), text("Old"));
        QSignalSpy changes(m_system.get(), &SystemMusicPlayer::nowPlayingItemDidChange);
        player.change(playing(text("One"), text("Old Band")));
        QTest::qWait(60);
        player.change(playing(text("One"), text("Band")));
        QTest::qWait(60);
        player.change(playing(text("One"), text("Band"), 1.5));
        QTRY_COMPARE(song(), 1);
        QCOMPARE(changes.size(), 1);
        m_system->endGeneratingPlaybackNotifications();
        player.change(playing(text("Two"), text("Band"), 1.5));
        QTRY_COMPARE(song(), 2);
        QCOMPARE(changes.size(), 1);
    }

    void isNotHurtByPlayersThatMisbehave()
    {
        FakePlayer hanging(text("hanging"), FakePlayer::Manners::Hangs);
        FakePlayer failing(text("failing"), FakePlayer::Manners::Fails);
        FakePlayer rambling(text("rambling"), FakePlayer::Manners::Rambles);
        FakePlayer good(text("good"));
        good.set(playing(text("Three"), text("Band"), 1.5, paused));
        for (FakePlayer *player : {&hanging, &failing, &rambling, &good})
            QVERIFY(player->appear());
        startFollowing();
        QVERIFY(becomesReady());
        QCOMPARE(song(), 3);

        const QString interface = text("org.mpris.MediaPlayer2.Player");
        rambling.sendChange({});
        rambling.sendChange({interface});
        rambling.sendChange({interface, 17, true});
        rambling.sendChange({7, QVariantMap{}, QStringList{}});
        rambling.sendChange({interface,
                             QVariantMap{{text("Metadata"), text("none")}, {text("PlaybackStatus"), 5.0}},
                             QStringList{}});
        rambling.sendChange(
            {interface, QVariantMap{{text("Metadata"), QVariantList{1, 2}}, {text("Rate"), text("fast")}},
             QStringList{text("Volume")}});
        rambling.seekTo(std::numeric_limits<qlonglong>::min());
        // One that was silent and speaks after all is heard.
        hanging.setManners(FakePlayer::Manners::Answers);
        hanging.change(playing(text("Late")));
        QTRY_COMPARE(title(), text("Late"));
        hanging.vanish();
        QTRY_COMPARE(song(), 3);
        good.change({{text("Metadata"), QVariantMap{}}});
        QTRY_COMPARE(title(), text("nothing"));
    }

    void somebodyWhoAsksWaitsForPlayersThatAreBeingAsked()
    {
        FakePlayer hanging(text("hanging"), FakePlayer::Manners::Hangs);
        QVERIFY(hanging.appear());
        startFollowing();
        QString answer;
        const auto ask = [this, &answer] { m_system->whenAnswered([this, &answer] { answer = title(); }); };
        ask();
        QVERIFY(becomesReady()); // a window that opens does not wait for it
        QVERIFY(answer.isEmpty());
        hanging.setManners(FakePlayer::Manners::Answers);
        hanging.change(playing(text("two"), text("BAND"), 1.5));
        QTRY_COMPARE(answer, text("Two"));
        hanging.vanish();
        QTRY_COMPARE(title(), text("nothing"));
        FakePlayer silent(text("silent"), FakePlayer::Manners::Hangs);
        QVERIFY(silent.appear());
        QTRY_VERIFY(silent.reads() > 0);
        ask();
        QCOMPARE(answer, text("Two"));
        QTRY_COMPARE_WITH_TIMEOUT(answer, text("nothing"), 10000); // it is given up
        answer.clear();
        ask();
        QCOMPARE(answer, text("nothing"));
    }

    void keepsUpWithAHundredPlayers()
    {
        startFollowing();
        FakePlayer last(text("steady"));
        last.set(playing(text("Two"), text("Band"), 1.5, paused));
        QVERIFY(last.appear());
        std::vector<std::unique_ptr<FakePlayer>> players;
        for (int i = 0; i < 100; ++i) {
            players.push_back(std::make_unique<FakePlayer>(QStringLiteral("crowd%1").arg(i)));
            players.back()->set(playing(QStringLiteral("Song %1").arg(i)));
            QVERIFY(players.back()->appear());
        }
        QTRY_COMPARE(m_system->players().size(), 101u);
        QTRY_VERIFY(title().startsWith(text("Song")));
        players.clear();
        QTRY_COMPARE(m_system->players().size(), 1u);
        QTRY_COMPARE(song(), 2);
    }

    void showsTheLastOfAThousandTracks()
    {
        startFollowing();
        FakePlayer player(text("hasty"));
        player.set(playing(text("Start")));
        QVERIFY(player.appear());
        QTRY_COMPARE(title(), text("Start"));
        QSignalSpy changes(m_system.get(), &SystemMusicPlayer::nowPlayingItemDidChange);
        for (int i = 0; i < 1000; ++i) {
            player.change(playing(QStringLiteral("Song %1").arg(i)));
            if (i % 100 == 0)
                QTest::qWait(40);
        }
        player.change(playing(text("Three"), text("Band"), 1.5));
        QTRY_COMPARE(song(), 3);
        QTest::qWait(400); // nothing older comes after it
        QCOMPARE(song(), 3);
        QVERIFY2(changes.size() > 1 && changes.size() < 20, qPrintable(QString::number(changes.size())));
    }
};

QTEST_GUILESS_MAIN(tst_MprisSystemMusicPlayer)
#include "tst_MprisSystemMusicPlayer.moc"
