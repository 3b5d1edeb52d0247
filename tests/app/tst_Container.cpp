// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowControllers.h"

#include <QSignalSpy>
#include <QTest>

using namespace trackwise;
using Window = WindowControllers;

class tst_Container : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stopsThePlayerOnlyForTheSongBefore_data()
    {
        QTest::addColumn<unsigned>("shownBefore");
        QTest::addColumn<unsigned>("playing");
        QTest::addColumn<unsigned>("chosen");
        QTest::addColumn<bool>("stops");
        QTest::newRow("nothing shown, nothing loaded") << 0U << 0U << 1U << true;
        QTest::newRow("nothing shown, a song plays") << 0U << 7U << 1U << false;
        QTest::newRow("the song before plays") << 1U << 1U << 2U << true;
        QTest::newRow("the song before plays and is chosen again") << 1U << 1U << 1U << true;
        QTest::newRow("another song plays") << 1U << 7U << 2U << false;
        QTest::newRow("nothing plays") << 1U << 0U << 2U << false;
    }
    void stopsThePlayerOnlyForTheSongBefore()
    {
        QFETCH(unsigned, shownBefore);
        QFETCH(unsigned, playing);
        QFETCH(unsigned, chosen);
        Window window;
        window.start();
        if (shownBefore)
            window.detail.displayMediaItem(song(shownBefore), false, true);
        window.player.setItem(playing ? std::optional(song(playing)) : std::nullopt);
        window.player.commands.clear();
        window.detail.displayMediaItem(song(chosen), false, true);
        QFETCH(bool, stops);
        QCOMPARE(window.player.commands,
                 stops ? QStringList({QStringLiteral("stop"), QStringLiteral("skipToBeginning")})
                       : QStringList());
    }

    void followsTheShownSongsValuesWithoutShowingItAgain()
    {
        Window window;
        window.library.list = {song(1), song(2)};
        window.start();
        window.detail.displayMediaItem(song(1), true, true);
        window.player.setItem(song(1));
        window.player.commands.clear();
        const InformationView *list = window.detail.informationView();
        ArtworkSidebarView *sidebar = window.container.sidebar();
        QSignalSpy changes(&window.detail, &DetailViewController::visibleMediaItemDidChange);

        window.library.list[0].playCount = 1;
        Q_EMIT window.library.songDidChange(PersistentID{2});
        QCOMPARE(changes.size(), 0);
        Q_EMIT window.library.songDidChange(PersistentID{1});
        QCOMPARE(list->rows().main.at(8).value, QStringLiteral("1"));
        window.library.list[0].title = QStringLiteral("retagged");
        Q_EMIT window.library.libraryDidChange();
        QCOMPARE(changes.size(), 2);
        QCOMPARE(list->rows().main.front().value, QStringLiteral("retagged"));
        QCOMPARE(sidebar->artwork()->title(), QStringLiteral("retagged"));
        QCOMPARE(window.detail.artworkView()->title(), QStringLiteral("retagged"));

        QCOMPARE(window.detail.informationView(), list);
        QCOMPARE(window.container.sidebar(), sidebar);
        QVERIFY(window.detail.isTrackingNowPlaying());
        QVERIFY(window.player.commands.isEmpty());
        QCOMPARE(window.preferences.soundsViewedCount(), 1);
        window.detail.displayMediaItem(song(2), false,
                                       true); // the player plays what was shown, though retagged
        QVERIFY(!window.player.commands.isEmpty());
    }

    void showsDatesInTheZoneOfNow()
    {
        Window window;
        window.library.list = {song(1)};
        window.start();
        window.library.list.front().lastPlayedDate = Instant(std::chrono::hours(20));
        window.detail.displayMediaItem(window.library.list.front(), false, true);
        const auto shows = [&](const QString &date) {
            const InformationRows rows = window.detail.informationView()->rows();
            return std::ranges::any_of(rows.main,
                                       [&](const InformationRow &row) { return row.value.contains(date); });
        };
        QVERIFY(shows(QStringLiteral("January 1, 1970")));
        window.services.zone = QTimeZone("Asia/Tokyo");
        window.detail.timeZoneDidChange();
        QVERIFY(shows(QStringLiteral("January 2, 1970")));
    }

    void refusesASongOutsideTheLibrary()
    {
        Window window;
        window.start();
        window.detail.displayMediaItem(song(1), true, true);
        bool shown = true;
        window.detail.displayMediaItem(song(0), false, false, [&](bool was) { shown = was; });
        QVERIFY(!shown);
        QVERIFY(!window.presentation.alert());
        window.detail.displayMediaItem(song(0), false, true);
        QCOMPARE(window.presentation.alert()->title(), QStringLiteral("Song Not Added to Library"));
        QCOMPARE(window.presentation.alert()->actionTitles(),
                 QStringList({QStringLiteral("Open Music"), QStringLiteral("Cancel")}));
        QCOMPARE(window.presentation.alert()->preferredAction(), 0);
        QCOMPARE(window.shown(), 1U);
        QVERIFY(window.detail.isTrackingNowPlaying());
        QCOMPARE(window.preferences.soundsViewedCount(), 1);
    }

    void clearingCountsNothingAndHappensOnce()
    {
        Window window;
        window.start();
        window.detail.clearSelectedSong();
        window.detail.displayMediaItem(song(1), false, true);
        const auto clearItem = [&] { return window.detail.moreMenu()->items().at(1).isEnabled; };
        QVERIFY(clearItem());
        window.detail.clearSelectedSong();
        QVERIFY(!clearItem());
        QVERIFY(!window.detail.informationView());
        QVERIFY(window.detail.isNoSongLabelVisible());
        QCOMPARE(window.preferences.soundsViewedCount(), 1);
    }

    void followsTheSystemsPlayerUntilASongIsChosen()
    {
        Window window;
        window.systemPlayer.item = song(1);
        window.start();
        QTRY_COMPARE(window.shown(), 1U);
        window.systemPlayer.change(song(2));
        QTRY_COMPARE(window.shown(), 2U);
        window.systemPlayer.change(std::nullopt);
        QThreadPool::globalInstance()->waitForDone(); // the question whether the library may be used
        QCoreApplication::processEvents();
        QCOMPARE(window.shown(), 2U);
        window.detail.displayMediaItem(song(5), false, true);
        window.systemPlayer.change(song(3));
        QCoreApplication::processEvents();
        QCOMPARE(window.shown(), 5U);
        QVERIFY(!window.presentation.alert());
    }

    void waitsForTheSongOfTheStartUntilTheLibraryHasIt_data()
    {
        QTest::addColumn<unsigned>("chosen"); ///< meanwhile, by the user
        QTest::addColumn<QString>("playing"); ///< when the library has been read
        QTest::addColumn<unsigned>("shown");
        QTest::newRow("the same song") << 0U << QStringLiteral("song 0") << 4U;
        QTest::newRow("another song") << 0U << QStringLiteral("song 4") << 0U;
        QTest::newRow("the user has chosen") << 9U << QStringLiteral("song 0") << 9U;
    }
    void waitsForTheSongOfTheStartUntilTheLibraryHasIt()
    {
        QFETCH(unsigned, chosen);
        QFETCH(QString, playing);
        QFETCH(unsigned, shown);
        Window window;
        window.systemPlayer.item = song(0);
        window.start();
        QThreadPool::globalInstance()->waitForDone(); // the question whether the library may be used
        QCoreApplication::processEvents();
        if (chosen)
            window.detail.displayMediaItem(song(chosen), false, true);
        MediaItem known = song(4);
        known.title = playing;
        window.systemPlayer.change(known);
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        QCOMPARE(window.shown(), shown);
        QCOMPARE(window.detail.isTrackingNowPlaying(), shown == 4U);
    }

    void whatTheUserChoosesStays_data()
    {
        QTest::addColumn<bool>("isFollowing");
        QTest::addColumn<bool>("isAskedFor");
        QTest::addColumn<bool>("clears");
        QTest::addColumn<unsigned>("shown");
        QTest::newRow("start under way") << false << false << false << 5U;
        QTest::newRow("change of track under way") << true << false << false << 5U;
        QTest::newRow("change of track under way, cleared") << true << false << true << 0U;
        QTest::newRow("asked for what is playing") << false << true << false << 2U;
    }
    void whatTheUserChoosesStays()
    {
        QFETCH(bool, isFollowing);
        QFETCH(bool, isAskedFor);
        QFETCH(bool, clears);
        Window window;
        window.systemPlayer.item = song(1);
        window.start();
        if (isFollowing)
            QTRY_COMPARE(window.shown(), 1U);
        window.systemPlayer.change(song(2)); // when followed, it is asked whether the library may be used
        if (isAskedFor)
            window.detail.selectNowPlayingSong(true);
        if (clears)
            window.detail.clearSelectedSong();
        else
            window.detail.displayMediaItem(song(5), false, true);
        QThreadPool::globalInstance()->waitForDone(); // the answers are on their way
        QCoreApplication::processEvents();
        QTEST(window.shown(), "shown");
    }

    void staysClearedWhenPlayersAreFoundLate()
    {
        Window window;
        window.systemPlayer.item = song(1);
        window.systemPlayer.isReady = false;
        window.start();
        window.detail.displayMediaItem(song(5), false, true);
        window.detail.clearSelectedSong();
        window.systemPlayer.ready();
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        QCOMPARE(window.shown(), 0U);
        QVERIFY(window.detail.isNoSongLabelVisible());
    }

    void saysWhyThereIsNoMusic_data()
    {
        QTest::addColumn<LibraryAuthorizationStatus>("status");
        QTest::addColumn<QString>("alert"); ///< title, message, answers, the preferred one
        QTest::newRow("allowed, nothing plays")
            << LibraryAuthorizationStatus::Authorized
            << QStringLiteral("No Song Playing|Would you like to play something?|Open Music,Cancel|0");
        QTest::newRow("denied")
            << LibraryAuthorizationStatus::Denied
            << QStringLiteral("No Music Access|Trackwise does not currently have access to your music "
                              "library. Please turn on Media & Apple Music access in the Settings app."
                              "|Open Settings,Cancel|0");
        QTest::newRow("restricted")
            << LibraryAuthorizationStatus::Restricted
            << QStringLiteral("No Music Access|Trackwise does not have access to your music library due to "
                              "restrictions enabled on your device.|Open Settings,Cancel|0");
    }
    void saysWhyThereIsNoMusic()
    {
        QFETCH(LibraryAuthorizationStatus, status);
        Window window;
        window.services.openSettings = [](Presentation &) {};
        window.library.status = status;
        window.start();
        window.detail.selectNowPlayingSong(true);
        QTRY_VERIFY(window.presentation.alert());
        const Alert &alert = *window.presentation.alert();
        QTEST((QStringList{alert.title(), alert.message(), alert.actionTitles().join(u','),
                           QString::number(alert.preferredAction())}
                   .join(u'|')),
              "alert");
    }

    void waitsForPlayersThatAreBeingAsked_data()
    {
        QTest::addColumn<unsigned>("answer");
        QTest::addColumn<unsigned>("chosen"); ///< meanwhile
        QTest::addColumn<unsigned>("shown");
        QTest::addColumn<QString>("alert");
        QTest::newRow("one plays") << 3U << 0U << 3U << QString();
        QTest::newRow("none plays") << 0U << 0U << 0U << QStringLiteral("No Song Playing");
        QTest::newRow("the user has chosen") << 3U << 5U << 5U << QString();
    }
    void waitsForPlayersThatAreBeingAsked()
    {
        QFETCH(unsigned, answer);
        QFETCH(unsigned, chosen);
        Window window;
        window.systemPlayer.isReady = false;
        window.start();
        window.detail.selectNowPlayingSong(true);
        QTRY_VERIFY(window.systemPlayer.answered);
        QVERIFY(!window.presentation.alert());
        if (chosen)
            window.detail.displayMediaItem(song(chosen), false, true);
        window.systemPlayer.item = answer ? std::optional(song(answer)) : std::nullopt;
        window.systemPlayer.answered();
        QTEST(window.shown(), "shown");
        QTEST(window.presentation.alert() ? window.presentation.alert()->title() : QString(), "alert");
    }

    void asksForAReviewAfterFiveSongsAndRemembersWhen()
    {
        Window window;
        window.containerServices.storePage = QUrl(QStringLiteral("https://store.example"));
        window.preferences.setFirstLaunchDate(window.now.addDays(-2));
        window.start();
        window.now = window.now.addSecs(4);
        for (const unsigned id : {1U, 2U, 3U, 4U, 5U})
            window.detail.displayMediaItem(song(id), false, true); // not in a window yet
        QVERIFY(!window.container.isReviewCardVisible());
        QCOMPARE(window.preferences.lastReviewRequestDate(), std::nullopt);

        window.container.setInWindow(true);
        QSignalSpy cards(&window.container, &ContainerViewController::reviewCardDidChange);
        window.detail.clearSelectedSong();
        QCOMPARE(cards.size(), 0);
        window.detail.displayMediaItem(song(6), false, true);
        QVERIFY(window.container.isReviewCardVisible());
        QCOMPARE(window.preferences.lastReviewRequestDate(), std::optional(window.now));
        QCOMPARE(window.preferences.soundsViewedCount(), 6);
        window.container.rate();
        QVERIFY(!window.container.isReviewCardVisible());
        QCOMPARE(window.addresses.opened, std::vector{window.containerServices.storePage});
        window.detail.displayMediaItem(song(4), false, true); // asked just now
        QCOMPARE(cards.size(), 2);
    }
};

QTEST_MAIN(tst_Container)
#include "tst_Container.moc"
