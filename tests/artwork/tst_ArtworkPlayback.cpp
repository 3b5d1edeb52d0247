// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkFiles.h"
#include "artwork/ArtworkSidebarView.h"
#include "support/AddressOpenerDouble.h"
#include "support/MusicPlayerDouble.h"

#include <QSignalSpy>
#include <QTest>

using namespace trackwise;

namespace {

MediaItem song(std::uint64_t id, const QString &title)
{
    MediaItem item;
    item.persistentID = {id};
    item.title = title;
    return item;
}

const QString loading = QStringLiteral("stop setQueue(A) prepareToPlay play");

} // namespace

class tst_ArtworkPlayback : public QObject
{
    Q_OBJECT

    MusicPlayerDouble m_player;
    AddressOpenerDouble m_opener;
    ArtworkLoader m_loader{[](PersistentID) { return ArtworkPtr(); }};
    ArtworkFiles m_files{QString()};
    const ArtworkServices m_services{m_player, m_opener, m_loader, m_files, [] { return Instant{}; }};
    const MediaItem m_songA = song(1, QStringLiteral("A"));
    const MediaItem m_songB = song(2, QStringLiteral("B"));

private Q_SLOTS:
    void initTestCase() { m_player.beginGeneratingPlaybackNotifications(); }
    void init()
    {
        m_player.setItem(std::nullopt);
        m_player.setState(PlaybackState::Stopped);
        m_player.commands.clear();
    }

    void theButtonPausesResumesOrLoads_data()
    {
        QTest::addColumn<QString>("loaded");
        QTest::addColumn<PlaybackState>("state");
        QTest::addColumn<QString>("commands");
        using enum PlaybackState;
        QTest::newRow("nothing loaded") << QString() << Stopped << loading;
        QTest::newRow("nothing loaded, said to play") << QString() << Playing << loading;
        QTest::newRow("this song, playing") << u"A"_qs << Playing << u"pause"_qs;
        QTest::newRow("this song, paused") << u"A"_qs << Paused << u"play"_qs;
        QTest::newRow("this song, stopped") << u"A"_qs << Stopped << u"play"_qs;
        QTest::newRow("another song, playing") << u"B"_qs << Playing << loading;
        QTest::newRow("another song, paused") << u"B"_qs << Paused << loading;
    }
    void theButtonPausesResumesOrLoads()
    {
        QFETCH(QString, loaded);
        QFETCH(PlaybackState, state);
        if (!loaded.isEmpty())
            m_player.setItem(loaded == u'A' ? m_songA : m_songB);
        m_player.setState(state);
        ArtworkView view({.mediaItem = m_songA, .supportsPlayback = true}, m_services);
        view.togglePlayback();
        QTEST(m_player.commands.join(u' '), "commands");
    }

    void anOlderRecordOfTheLoadedSongResumesIt()
    {
        MediaItem played = m_songA;
        played.playCount = 7;
        m_player.setItem(played);
        ArtworkView view({.mediaItem = m_songA, .supportsPlayback = true}, m_services);
        view.togglePlayback();
        QCOMPARE(m_player.commands, QStringList{QStringLiteral("play")});
    }

    void withoutASongTheButtonDoesNothing()
    {
        ArtworkView view({.supportsPlayback = true}, m_services);
        view.togglePlayback();
        QVERIFY(m_player.commands.isEmpty());
    }

    void theStateFollowsThePlayer_data()
    {
        QTest::addColumn<bool>("supportsPlayback");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("loaded");
        QTest::addColumn<PlaybackState>("state");
        QTest::addColumn<bool>("isPlaying");
        using enum PlaybackState;
        QTest::newRow("this song plays") << true << u"A"_qs << u"A"_qs << Playing << true;
        QTest::newRow("this song rests") << true << u"A"_qs << u"A"_qs << Paused << false;
        QTest::newRow("another plays") << true << u"A"_qs << u"B"_qs << Playing << false;
        QTest::newRow("none loaded") << true << u"A"_qs << QString() << Playing << false;
        QTest::newRow("none shown") << true << QString() << u"B"_qs << Playing << false;
        QTest::newRow("neither shown nor loaded") << true << QString() << QString() << Playing << true;
        QTest::newRow("playback not offered") << false << u"A"_qs << u"A"_qs << Playing << false;
    }
    void theStateFollowsThePlayer()
    {
        QFETCH(bool, supportsPlayback);
        QFETCH(QString, shown);
        QFETCH(QString, loaded);
        QFETCH(PlaybackState, state);
        ArtworkContent content{.supportsPlayback = supportsPlayback};
        if (!shown.isEmpty())
            content.mediaItem = m_songA;
        if (!loaded.isEmpty())
            m_player.setItem(loaded == u'A' ? m_songA : m_songB);

        ArtworkView told(content, m_services); // hears of the change
        m_player.setState(state);
        QTEST(told.isPlaying(), "isPlaying");

        ArtworkView late(content, m_services); // comes after it
        QVERIFY(!late.isPlaying());
        late.appear();
        QTEST(late.isPlaying(), "isPlaying");
    }

    void pressingDoesNotClaimThatItPlays()
    {
        MusicPlayerDouble silent; // never asked for notifications
        const ArtworkServices services{silent, m_opener, m_loader, m_files, [] { return Instant{}; }};
        ArtworkView view({.mediaItem = m_songA, .supportsPlayback = true}, services);
        view.togglePlayback();
        QVERIFY(!view.isPlaying());
    }

    void whoeverChangesThePlayerFlipsEveryView()
    {
        ArtworkSidebarView sidebar(m_songA, false, false, m_services);
        ArtworkView list({.mediaItem = m_songA, .supportsPlayback = true}, m_services);
        list.togglePlayback();
        QVERIFY(sidebar.artwork()->isPlaying());
        m_player.setState(PlaybackState::Paused);
        QVERIFY(!sidebar.artwork()->isPlaying());
        QVERIFY(!list.isPlaying());
    }

    void aSongWithoutATitleIsCalledAsItsFile()
    {
        ArtworkServices services = m_services;
        services.fileName = [](PersistentID id) { return QString::number(id.value); };
        MediaItem song = m_songB;
        song.title = u""_qs;
        ArtworkView view({.mediaItem = song}, services);
        QCOMPARE(view.title(), QStringLiteral("2"));
        view.setMediaItem(m_songB);
        QCOMPARE(view.title(), QStringLiteral("B"));
    }

    void aFollowedSongHasTheMusicAppInsteadOfAButton()
    {
        ArtworkSidebarView followed(m_songA, true, true, m_services);
        QVERIFY(!followed.artwork()->showsPlayButton());
        followed.artwork()->openMusicApp();
        QCOMPARE(m_opener.opened, std::vector{QUrl(QStringLiteral("music://"))});
        ArtworkSidebarView picked(m_songA, false, false, m_services);
        QVERIFY(picked.artwork()->showsPlayButton());
        QVERIFY(picked.artwork()->alignPlaybackWithArtwork());
    }
};

QTEST_GUILESS_MAIN(tst_ArtworkPlayback)
#include "tst_ArtworkPlayback.moc"
