// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/players/PrivateSound.h"
#include "device/players/following/FakePlayer.h"
#include "device/players/following/MprisSystemMusicPlayer.h"
#include "support/Test.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QThread>

#include <memory>

namespace {

const QString appId = u"org.example.tester"_s;
const QString paused = u"Paused"_s;
const QString stopped = u"Stopped"_s;
const QString interface = u"org.mpris.MediaPlayer2.Player"_s;

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
        return item ? item->title.value_or(QString()) : u"nothing"_s;
    }
    /// The number of the song, or 0.
    [[nodiscard]] qsizetype song() const
    {
        const auto item = m_system->nowPlayingItem();
        return item ? m_songs.indexOf(item->persistentID) + 1 : 0;
    }
    [[nodiscard]] QString tone(int number) const { return m_folder.filePath(u"%1.flac"_s.arg(number)); }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run inside dbus-run-session");
        for (int number = 1; number <= 3; ++number) {
            QVERIFY(makeTone(tone(number), 3, {u"title=Track %1"_s.arg(number), u"artist=Somebody"_s}));
            const QString title = QStringList{u"One"_s, u"Two"_s, u"Three"_s}.at(number - 1);
            m_songs << m_library.addFile(QFileInfo(tone(number)).canonicalFilePath(),
                                         songTags(title, u"Band"_s, u"Album"_s, 3));
        }
    }
    void cleanup() { m_system.reset(); }

    void knowsWhatPlaysAlreadyWhenReady()
    {
        FakePlayer player(u"quiet"_s);
        player.set(playing(u"two"_s, u"BAND"_s, 1.5));
        QVERIFY(player.appear());
        startFollowing();
        QThread::msleep(750); // the first window takes its time: no answer is looked at meanwhile
        QVERIFY(becomesReady());
        QCOMPARE(song(), 2);
        QVERIFY(m_system->raisePlayer());
        QTRY_COMPARE(player.raised, 1);
    }

    void isReadyWithoutABusOrPlayers()
    {
        startFollowing();
        QVERIFY(becomesReady());
        QCOMPARE(title(), u"nothing"_s);
        QVERIFY(!m_system->raisePlayer());

        m_system = std::make_unique<MprisSystemMusicPlayer>(m_library.library().matching(),
                                                            QDBusConnection(u"nowhere"_s), appId);
        QVERIFY(becomesReady());
        QCOMPARE(title(), u"nothing"_s);
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
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        QProcess mpv;
        mpv.start(u"mpv"_s, {u"--ao=null"_s, u"--no-terminal"_s, u"--no-video"_s, tone(1), tone(2), tone(3)});
        QVERIFY(mpv.waitForStarted());
        QTRY_COMPARE_WITH_TIMEOUT(played, QList<qsizetype>({1, 2, 3}), 20000);
        QTRY_COMPARE(songs, QList<qsizetype>({1, 2, 3, 0})); // and it quits
        QTRY_COMPARE(mpv.state(), QProcess::NotRunning);
    }

    void choosesAmongPlayersThatComeAndGo()
    {
        startFollowing();
        FakePlayer one(u"one"_s);
        FakePlayer two(u"two.instance7"_s);
        FakePlayer own(appId + u".instance12"_s);
        FakePlayer proxy(u"playerctld"_s);
        own.set(playing(u"Own"_s));
        proxy.set(playing(u"Mirrored"_s));
        one.set(playing(u"First"_s, {}, 0, paused));
        for (FakePlayer *player : {&own, &proxy, &one})
            QVERIFY(player->appear());
        QTRY_COMPARE(title(), u"First"_s);
        two.set(playing(u"Second"_s));
        QVERIFY(two.appear());
        QTRY_COMPARE(title(), u"Second"_s);
        QCOMPARE(m_system->players().size(), 2u);
        two.change({{u"PlaybackStatus"_s, stopped}});
        QTRY_COMPARE(title(), u"First"_s);
        two.change({{u"PlaybackStatus"_s, u"Playing"_s}});
        QTRY_COMPARE(title(), u"Second"_s);
        m_system->setIgnored({u"two"_s});
        QTRY_COMPARE(title(), u"First"_s);
        m_system->setIgnored({});
        QTRY_COMPARE(title(), u"Second"_s);
        two.vanish();
        QTRY_COMPARE(title(), u"First"_s);
        one.vanish();
        QTRY_COMPARE(title(), u"nothing"_s);
        QVERIFY(m_system->players().empty());
        QCOMPARE(own.reads + proxy.reads, 0);
    }

    void collectsWhatComesInPieces()
    {
        startFollowing();
        FakePlayer player(u"slow"_s);
        player.set(playing(u"Old"_s, u"Band"_s));
        QVERIFY(player.appear());
        QTRY_COMPARE(title(), u"Old"_s);
        QSignalSpy changes(m_system.get(), &SystemMusicPlayer::nowPlayingItemDidChange);
        player.change(playing(u"One"_s, u"Old Band"_s));
        QTest::qWait(60);
        player.change(playing(u"One"_s, u"Band"_s));
        QTest::qWait(60);
        player.change(playing(u"One"_s, u"Band"_s, 1.5));
        QTRY_COMPARE(song(), 1);
        QCOMPARE(changes.size(), 1);
        player.set(playing(u"After"_s));
        player.sendChange(
            {interface, QVariantMap(), QStringList(u"Metadata"_s)}); // it only says that something is new
        QTRY_COMPARE(title(), u"After"_s);
        QCOMPARE(changes.size(), 2);
        m_system->endGeneratingPlaybackNotifications();
        player.change(playing(u"Two"_s, u"Band"_s, 1.5));
        QTRY_COMPARE(song(), 2);
        QCOMPARE(changes.size(), 2);
    }

    void isNotHurtByPlayersThatMisbehave()
    {
        FakePlayer hanging(u"hanging"_s, FakePlayer::Manners::Hangs);
        FakePlayer failing(u"failing"_s, FakePlayer::Manners::Fails);
        FakePlayer rambling(u"rambling"_s, FakePlayer::Manners::Rambles);
        FakePlayer good(u"good"_s);
        good.set(playing(u"Three"_s, u"Band"_s, 1.5, paused));
        for (FakePlayer *player : {&hanging, &failing, &rambling, &good})
            QVERIFY(player->appear());
        startFollowing();
        QVERIFY(becomesReady());
        QCOMPARE(song(), 3);

        const QVariantMap texts{{u"Metadata"_s, u"none"_s}, {u"PlaybackStatus"_s, 5.0}};
        const QVariantMap lists{{u"Metadata"_s, QVariantList{1, 2}}, {u"Rate"_s, u"fast"_s}};
        for (const QVariantList &arguments : {QVariantList{},
                                              {interface},
                                              {interface, 17, true},
                                              {7, texts, QStringList()},
                                              {interface, texts, QStringList()},
                                              {interface, lists, QStringList(u"Volume"_s)}})
            rambling.sendChange(arguments);
        rambling.seekTo(std::numeric_limits<qlonglong>::min());
        // One that was silent and speaks after all is heard.
        hanging.manners = FakePlayer::Manners::Answers;
        hanging.change(playing(u"Late"_s));
        QTRY_COMPARE(title(), u"Late"_s);
        hanging.vanish();
        QTRY_COMPARE(song(), 3);
        good.change({{u"Metadata"_s, QVariantMap{}}});
        QTRY_COMPARE(title(), u"nothing"_s);
    }

    void somebodyWhoAsksWaitsForPlayersThatAreBeingAsked()
    {
        FakePlayer hanging(u"hanging"_s, FakePlayer::Manners::Hangs);
        QVERIFY(hanging.appear());
        startFollowing();
        QString answer;
        const auto ask = [this, &answer] {
            m_system->whenAnswered([&answer](const std::optional<MediaItem> &item) {
                answer = item ? item->title.value_or(u"untitled"_s) : u"nothing"_s;
            });
        };
        ask();
        QVERIFY(becomesReady()); // a window that opens does not wait for it
        QVERIFY(answer.isEmpty());
        hanging.manners = FakePlayer::Manners::Answers;
        hanging.change(playing(u"two"_s, u"BAND"_s, 1.5));
        QTRY_COMPARE(answer, u"Two"_s);
        hanging.vanish();
        QTRY_COMPARE(title(), u"nothing"_s);
        FakePlayer silent(u"silent"_s, FakePlayer::Manners::Hangs);
        QVERIFY(silent.appear());
        QTRY_VERIFY(silent.reads > 0);
        ask();
        QCOMPARE(answer, u"Two"_s);
        QTRY_COMPARE_WITH_TIMEOUT(answer, u"nothing"_s, 10000); // it is given up
        answer.clear();
        ask();
        QCOMPARE(answer, u"nothing"_s);
    }

    void keepsUpWithAHundredPlayersAndAThousandTracks()
    {
        startFollowing();
        FakePlayer last(u"steady"_s);
        last.set(playing(u"Two"_s, u"Band"_s, 1.5, paused));
        QVERIFY(last.appear());
        std::vector<std::unique_ptr<FakePlayer>> players;
        for (int i = 0; i < 100; ++i) {
            players.push_back(std::make_unique<FakePlayer>(u"crowd%1"_s.arg(i)));
            players.back()->set(playing(u"Song %1"_s.arg(i)));
            QVERIFY(players.back()->appear());
        }
        QTRY_COMPARE(m_system->players().size(), 101u);
        QTRY_VERIFY(title().startsWith(u"Song"_s));
        players.clear();
        QTRY_COMPARE(m_system->players().size(), 1u);
        QTRY_COMPARE(song(), 2);
        QSignalSpy changes(m_system.get(), &SystemMusicPlayer::nowPlayingItemDidChange);
        for (int i = 0; i < 1000; ++i) {
            last.change(playing(u"Song %1"_s.arg(i)));
            if (i % 100 == 0)
                QTest::qWait(40);
        }
        last.change(playing(u"Three"_s, u"Band"_s, 1.5));
        QTRY_COMPARE(song(), 3);
        QVERIFY2(changes.size() > 1 && changes.size() < 20, qPrintable(QString::number(changes.size())));
    }
};

QTEST_GUILESS_MAIN(tst_MprisSystemMusicPlayer)
#include "tst_MprisSystemMusicPlayer.moc"
