// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowControllers.h"
#include "support/Test.h"

#include <QSignalSpy>

namespace {

/// A window that has just opened.
struct Window : WindowControllers
{
    explicit Window(std::optional<MediaItem> playing = {})
    {
        systemPlayer.item = std::move(playing);
        start();
    }
};

} // namespace

class tst_Container : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listensToThePlayersWhileItIsThere()
    {
        WindowDevice device;
        {
            Presentation presentation;
            DetailViewController detail(device.services, presentation);
            ContainerViewController container(device.containerServices, detail);
            container.viewDidLoad();
            detail.viewDidLoad();
            QCOMPARE(device.systemPlayer.listeners, 1);
            QCOMPARE(device.player.listeners, 1);
        }
        QCOMPARE(device.systemPlayer.listeners, 0);
        QCOMPARE(device.player.listeners, 0);
    }

    void stopsThePlayerOnlyForTheSongBefore()
    {
        const std::tuple<unsigned, unsigned, unsigned, bool> rows[]{
            // The song shown before, the one that plays, the one chosen (0: none), whether the player stops.
            {0, 0, 1, true}, {0, 7, 1, false}, {1, 1, 2, true},  {1, 1, 1, true},
            {1, 1, 0, true}, {1, 7, 2, false}, {1, 0, 2, false},
        };
        for (const auto &[before, playing, chosen, stops] : rows) {
            Window window;
            if (before)
                window.choose(before);
            window.player.setItem(playing ? std::optional(song(playing)) : std::nullopt);
            window.player.commands.clear();
            if (chosen)
                window.choose(chosen);
            else
                window.detail.clearSelectedSong();
            QCOMPARE(std::tuple(before, playing, chosen, window.player.commands.join(u' ')),
                     std::tuple(before, playing, chosen, stops ? u"stop skipToBeginning"_s : QString()));
        }
    }

    void followsTheShownSongsValuesWithoutShowingItAgain()
    {
        Window window;
        window.library.list = {song(1), song(2)};
        window.detail.displayMediaItem(song(1), {.isNowPlaying = true});
        window.player.setItem(song(1));
        window.player.commands.clear();
        const InformationView *list = window.detail.informationView();
        ArtworkSidebarView *sidebar = window.container.sidebar();
        QSignalSpy changes(&window.detail, &DetailViewController::visibleMediaItemDidChange);

        window.library.list[0].playCount = 1;
        Q_EMIT window.library.songDidChange(PersistentID{2});
        QCOMPARE(changes.size(), 0);
        Q_EMIT window.library.songDidChange(PersistentID{1});
        QTRY_COMPARE(list->rows().main.at(8).value, u"1"_s);
        window.library.list[0].title = u"retagged"_s;
        Q_EMIT window.library.libraryDidChange();
        Q_EMIT window.library.libraryDidChange(); // for others
        QTRY_COMPARE(changes.size(), 2);
        for (const QString &shown : {list->rows().main.front().value, sidebar->artwork()->title(),
                                     window.detail.artworkView()->title()})
            QCOMPARE(shown, u"retagged"_s);

        QCOMPARE(window.detail.informationView(), list);
        QCOMPARE(window.container.sidebar(), sidebar);
        QVERIFY(window.detail.isTrackingNowPlaying());
        QVERIFY(window.player.commands.isEmpty());
        QCOMPARE(window.preferences.soundsViewedCount(), 1);
        window.choose(2); // the player plays what was shown, though retagged
        QVERIFY(!window.player.commands.isEmpty());
    }

    void showsDatesInTheZoneOfNow()
    {
        Window window;
        window.library.list = {song(1)};
        window.detail.timeZoneDidChange(); // with no song
        window.library.list.front().lastPlayedDate = Instant(std::chrono::hours(20));
        window.detail.displayMediaItem(window.library.list.front(), {});
        const auto shows = [&](const QString &date) {
            const InformationRows rows = window.detail.informationView()->rows();
            return std::ranges::any_of(rows.main,
                                       [&](const InformationRow &row) { return row.value.contains(date); });
        };
        QVERIFY(shows(u"January 1, 1970"_s));
        window.services.zone = QTimeZone("Asia/Tokyo");
        window.detail.timeZoneDidChange();
        QTRY_VERIFY(shows(u"January 2, 1970"_s));
    }

    void refusesASongOutsideTheLibrary()
    {
        Window window;
        QString told;
        const auto tell = [&told](bool wasShown) { told += wasShown ? u'1' : u'0'; };
        window.detail.displayMediaItem(song(1), {.isNowPlaying = true}, tell);
        window.detail.displayMediaItem(song(0), {.showsNotInLibraryAlert = false}, tell);
        QCOMPARE(window.takeAlert(), QString());
        window.choose(0);
        QCOMPARE(window.takeAlert(),
                 u"Song Not Added to Library|This song needs to be added to your Music Library to access its "
                 "information. You can do this in the Music app.|Open Music,Cancel|0"_s);
        QCOMPARE(told, u"10"_s);
        QCOMPARE(window.shown(), 1U);
        QVERIFY(window.detail.isTrackingNowPlaying());
        QCOMPARE(window.preferences.soundsViewedCount(), 1);
    }

    void clearingCountsNothingAndHappensOnce()
    {
        Window window;
        QSignalSpy songs(&window.detail, &DetailViewController::songDidChange);
        QSignalSpy labels(&window.detail, &DetailViewController::noSongLabelDidChange);
        QSignalSpy sidebars(&window.container, &ContainerViewController::sidebarDidChange);
        for (const bool shows : {false, true, true, false, false}) {
            if (shows)
                window.detail.displayMediaItem(song(1), {.isNowPlaying = true});
            else
                window.detail.clearSelectedSong();
            QCOMPARE(window.detail.moreMenu()->entries().at(2).isEnabled, shows);
            QCOMPARE(window.detail.informationView() != nullptr, shows);
            QCOMPARE(window.container.sidebar()->artwork()->title().isEmpty(), !shows);
            QCOMPARE(window.detail.isTrackingNowPlaying(), shows);
            QCOMPARE(window.detail.isNoSongLabelVisible(), !shows);
        }
        QCOMPARE(std::tuple(songs.size(), labels.size(), sidebars.size()), std::tuple(3, 2, 3));
        QCOMPARE(window.preferences.soundsViewedCount(), 2);
    }

    void followsTheSystemsPlayerUntilASongIsChosen()
    {
        Window window(song(1));
        QVERIFY(window.detail.isNoSongLabelVisible()); // the user may take a while to answer
        for (const unsigned playing : {1U, 2U, 0U, 3U}) {
            if (playing != 1)
                window.systemPlayer.change(playing ? std::optional(song(playing)) : std::nullopt);
            window.settle();
            QCOMPARE(window.shown(), playing ? playing : 2U);
        }
        const auto playback = [&window] {
            return std::tuple(window.detail.artworkView()->showsPlayButton(),
                              window.detail.artworkView()->alignPlaybackWithArtwork(),
                              window.detail.informationView()->supportsPlayback(),
                              window.container.sidebar()->supportsPlayback());
        };
        QCOMPARE(playback(), std::tuple(false, false, true, true)); // another player plays it
        window.choose(5);
        QCOMPARE(playback(), std::tuple(true, false, true, true));
        window.systemPlayer.change(song(3));
        QCOMPARE(window.takeAlert(), QString());
        QCOMPARE(window.shown(), 5U);
    }

    void waitsForTheSongOfTheStartUntilTheLibraryHasIt()
    {
        const std::tuple<unsigned, QString, unsigned> rows[]{
            // What the user chooses meanwhile, the title of what plays when the library has been read, what
            // is shown.
            {0, u"song 0"_s, 4},
            {0, u"song 4"_s, 0},
            {9, u"song 0"_s, 9},
        };
        for (const auto &[chosen, playing, shown] : rows) {
            Window window(song(0));
            window.settle();
            if (chosen)
                window.choose(chosen);
            MediaItem known = song(4);
            known.title = playing;
            window.systemPlayer.change(known);
            QCOMPARE(window.takeAlert(), QString());
            QCOMPARE(std::tuple(chosen, playing, window.shown()), std::tuple(chosen, playing, shown));
            QCOMPARE(window.detail.isTrackingNowPlaying(), shown == 4U);
        }
    }

    void whatTheUserChoosesStays()
    {
        // Whether what plays is followed or asked for, what is chosen (0: it is cleared), what is shown.
        const std::tuple<const char *, bool, bool, unsigned, unsigned> rows[]{
            {"start under way", false, false, 5, 5},
            {"change of track under way", true, false, 5, 5},
            {"change of track under way, cleared", true, false, 0, 0},
            {"asked for what is playing", false, true, 5, 2}};
        for (const auto &[name, isFollowing, isAskedFor, chosen, shown] : rows) {
            Window window(song(1));
            if (isFollowing)
                window.settle();
            window.systemPlayer.change(song(2)); // when followed, it is asked whether the library may be used
            if (isAskedFor)
                window.detail.selectNowPlayingSong(true);
            if (chosen)
                window.choose(chosen);
            else
                window.detail.clearSelectedSong();
            window.settle(); // the answers are on their way
            QVERIFY2(window.shown() == shown, name);
        }
    }

    void staysClearedWhenPlayersAreFoundLate()
    {
        WindowControllers window;
        window.systemPlayer.item = song(1);
        window.systemPlayer.isReady = false;
        window.start();
        window.choose(5);
        window.detail.clearSelectedSong();
        window.systemPlayer.ready();
        window.settle();
        QCOMPARE(window.shown(), 0U);
        QVERIFY(window.detail.isNoSongLabelVisible());
    }

    void saysWhyThereIsNoMusic()
    {
        using enum LibraryAuthorizationStatus;
        const std::pair<LibraryAuthorizationStatus, QString> rows[]{
            {Authorized, u"No Song Playing|Would you like to play something?|Open Music,Cancel|0"_s},
            {Denied, u"No Music Access"_s},
            {NotDetermined, QString()},
        };
        for (const auto &[status, alert] : rows) {
            WindowControllers window;
            window.services.openSettings = [](Presentation &) {};
            window.library.status = status;
            window.start();
            QCOMPARE(window.takeAlert(), QString()); // nobody has asked
            QString told;
            window.detail.selectNowPlayingSong(true,
                                               [&told](bool wasShown) { told += wasShown ? u'1' : u'0'; });
            const QString said = window.takeAlert();
            QVERIFY2(said.startsWith(alert) && said.isEmpty() == alert.isEmpty(), qPrintable(said));
            QCOMPARE(told, status == Authorized ? u"0"_s : QString());
        }
    }

    void waitsForPlayersThatAreBeingAsked()
    {
        const std::tuple<unsigned, unsigned, unsigned, QString> rows[]{
            // What plays, what the user chooses meanwhile, what is shown, the alert.
            {3, 0, 3, QString()},
            {0, 0, 0, u"No Song Playing"_s},
            {3, 5, 5, QString()},
        };
        for (const auto &[answer, chosen, shown, alert] : rows) {
            WindowControllers window;
            window.systemPlayer.isReady = false;
            window.start();
            window.detail.selectNowPlayingSong(true);
            QCOMPARE(window.takeAlert(), QString());
            if (chosen)
                window.choose(chosen);
            window.systemPlayer.item = answer ? std::optional(song(answer)) : std::nullopt;
            window.systemPlayer.answered(window.systemPlayer.item);
            QCOMPARE(std::pair(window.shown(), window.takeAlert().section(u'|', 0, 0)),
                     std::pair(shown, alert));
        }
    }

    void asksForAReviewAfterFiveSongsAndRemembersWhen()
    {
        Window window;
        window.services.support.deployment.storeHost = u"store.example"_s;
        window.preferences.setFirstLaunchDate(window.now.addDays(-2));
        window.now = window.now.addSecs(4);
        for (const unsigned id : {1U, 2U, 3U, 4U, 5U})
            window.choose(id); // not in a window yet
        QVERIFY(!window.container.isReviewCardVisible());
        QCOMPARE(window.preferences.lastReviewRequestDate(), std::nullopt);

        window.container.setInWindow(true);
        QSignalSpy cards(&window.container, &ContainerViewController::reviewCardDidChange);
        window.detail.clearSelectedSong();
        QCOMPARE(cards.size(), 0);
        window.choose(6);
        QVERIFY(window.container.isReviewCardVisible());
        QCOMPARE(window.preferences.lastReviewRequestDate(), std::optional(window.now));
        QCOMPARE(window.preferences.soundsViewedCount(), 6);
        window.container.rate();
        QVERIFY(!window.container.isReviewCardVisible());
        QCOMPARE(window.addresses.opened.size(), 1U);
        QCOMPARE(window.addresses.opened.front().host(), u"store.example"_s);
        window.choose(4); // asked just now
        QCOMPARE(cards.size(), 2);
    }
};

QTEST_MAIN(tst_Container)
#include "tst_Container.moc"
