// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkSidebarView.h"
#include "support/ArtworkDoubles.h"
#include "support/Test.h"

#include <QSignalSpy>

class tst_ArtworkPlayback : public QObject
{
    Q_OBJECT

    ArtworkDoubles m_doubles;
    MusicPlayerDouble &m_player = m_doubles.player;
    const ArtworkServices &m_services = m_doubles.artwork;
    const MediaItem m_songA{.title = u"A"_s, .persistentID = {1}};
    const MediaItem m_songB{.title = u"B"_s, .persistentID = {2}};
    const std::optional<MediaItem> m_none;

private Q_SLOTS:
    void initTestCase() { m_player.beginGeneratingPlaybackNotifications(); }
    void init()
    {
        m_player.setItem(std::nullopt);
        m_player.setState(PlaybackState::Stopped);
        m_player.commands.clear();
    }

    void theButtonPausesResumesOrLoads()
    {
        using enum PlaybackState;
        const auto commands = [this](const std::optional<MediaItem> &loaded, PlaybackState state) {
            init();
            m_player.setItem(loaded);
            m_player.setState(state);
            ArtworkView view({.mediaItem = m_songA, .supportsPlayback = true}, m_services);
            view.togglePlayback();
            return m_player.commands.join(u' ');
        };
        const QString loading = u"stop setQueue(A) prepareToPlay play"_s;
        QCOMPARE(commands(m_none, Stopped), loading);
        QCOMPARE(commands(m_none, Playing), loading);
        QCOMPARE(commands(m_songA, Playing), u"pause"_s);
        QCOMPARE(commands(m_songA, Paused), u"play"_s);
        QCOMPARE(commands(m_songA, Stopped), u"play"_s);
        QCOMPARE(commands(m_songB, Playing), loading);
        QCOMPARE(commands(m_songB, Paused), loading);
        MediaItem later = m_songA;
        later.playCount = 7;
        QCOMPARE(commands(later, Paused), u"play"_s);

        m_player.commands.clear();
        ArtworkView({.supportsPlayback = true}, m_services).togglePlayback(); // without a song
        QVERIFY(m_player.commands.isEmpty());
    }

    void theStateFollowsThePlayer()
    {
        using enum PlaybackState;
        struct Case
        {
            const char *name;
            bool isPlaying;
            std::optional<MediaItem> shown;
            std::optional<MediaItem> loaded;
            PlaybackState state = Playing;
            bool supportsPlayback = true;
        };
        for (const Case &c :
             {Case{"this song plays", true, m_songA, m_songA},
              Case{"it rests", false, m_songA, m_songA, Paused},
              Case{"another plays", false, m_songA, m_songB}, Case{"none loaded", false, m_songA, {}},
              Case{"none shown", false, {}, m_songB}, Case{"neither shown nor loaded", true, {}, {}},
              Case{"playback not offered", false, m_songA, m_songA, Playing, false}}) {
            init();
            const ArtworkContent content{.mediaItem = c.shown, .supportsPlayback = c.supportsPlayback};
            m_player.setItem(c.loaded);
            ArtworkView told(content, m_services); // hears of the change
            m_player.setState(c.state);
            ArtworkView late(content, m_services); // comes after it
            QVERIFY2(told.isPlaying() == c.isPlaying && !late.isPlaying(), c.name);
            late.appear();
            QVERIFY2(late.isPlaying() == c.isPlaying, c.name);
        }
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
        m_player.endGeneratingPlaybackNotifications(); // pressing alone claims nothing
        list.togglePlayback();
        QVERIFY(!list.isPlaying());
        m_player.beginGeneratingPlaybackNotifications();
    }

    void aSongWithoutATitleIsCalledAsItsFile()
    {
        ArtworkServices services = m_services;
        services.fileName = [](PersistentID id) { return QString::number(id.value); };
        ArtworkView view({.mediaItem = MediaItem{.title = u""_s, .persistentID = {2}}}, services);
        QCOMPARE(view.title(), u"2"_s);
        view.setMediaItem(m_songB);
        QCOMPARE(view.title(), u"B"_s);
    }
};

QTEST_GUILESS_MAIN(tst_ArtworkPlayback)
#include "tst_ArtworkPlayback.moc"
