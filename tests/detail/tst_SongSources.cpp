// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowControllers.h"
#include "support/ScriptedIndex.h"
#include "support/SyntheticLibrary.h"
#include "support/Test.h"

#include <QAbstractItemModelTester>

namespace {

struct PickersLibrary
{
    SyntheticLibrary songs{10};
    ScriptedScan scan;
    ScriptedIndex index;
};

/// Controllers with pickers, as many as are asked for, and a settings screen.
struct Window : PickersLibrary, WindowControllers
{
    Window()
        : WindowControllers([this](DetailServices &s) {
            s.makePicker = [this] {
                pickers.push_back(std::make_shared<MediaPicker>(songs, songs, scan, index));
                return pickers.back();
            };
            s.connectedScenes = [this] { return windows; };
            s.openSettings = [this](Presentation &) { ++openedSettings; };
        })
    {
        library.add(1, "First", "Band", "Album", "100");
        library.add(2, "Second", "The Band", "Album");
        library.add(0, "Elsewhere", "Band", "Album", "300");
        start();
        settle();
    }
    /// What comes of a drop: the alert, or else the number of the song that is shown.
    QString drop(const QString &address)
    {
        detail.handleDroppedURLs({address});
        return outcome();
    }
    QString answer(std::size_t request, const Result<QByteArray> &reply)
    {
        http.answer(request, reply);
        return outcome();
    }
    QString outcome()
    {
        const QString alert = takeAlert();
        return alert.isEmpty() ? QString::number(shown()) : alert;
    }
    /// Which picker stands then, of how many that were made; 0: none.
    std::pair<int, int> openPicker()
    {
        detail.selectSongFromLibrary();
        settle();
        if (!presentation.isSheetVisible())
            return {0, pickers.size()};
        pickers.back()->prepare(); // as its view does
        const auto standing =
            std::ranges::find(pickers, presentation.sheet()->model(), &std::shared_ptr<MediaPicker>::get);
        return {standing - pickers.begin() + 1, pickers.size()};
    }
    [[nodiscard]] bool isGone() const
    {
        QCoreApplication::processEvents();
        return !presentation.isPresenting();
    }

    std::vector<std::shared_ptr<MediaPicker>> pickers;
    int windows = 1;
    int openedSettings = 0;
};

QByteArray replyWith(const char *title)
{
    return QByteArray(R"({"results":[{"kind":"song","trackName":")") + title +
           R"(","artistName":"Band","collectionName":"Album"}]})";
}

const QString songLink = u"https://music.apple.com/album/1?i=%1"_s;

} // namespace

class tst_SongSources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheSamePickerAgainWhileThereIsOneWindow()
    {
        Window w;
        QCOMPARE(w.openPicker(), std::pair(1, 1));
        QCOMPARE(w.openPicker(), std::pair(1, 1)); // it stands already
        w.pickers.at(0)->cancel();
        QVERIFY(w.isGone());
        QCOMPARE(w.openPicker(), std::pair(1, 1));
        w.presentation.cancelSheet();
        QVERIFY(w.isGone());

        w.windows = 2;
        QCOMPARE(w.openPicker(), std::pair(2, 2));
        Q_EMIT w.pickers.at(0)->didPick({song(5)}); // nobody listens to it any more
        QCOMPARE(w.shown(), 0U);
        Q_EMIT w.pickers.at(1)->didPick({song(6), song(7)});
        QVERIFY(w.isGone());
        QCOMPARE(w.shown(), 6U);
        QVERIFY(!w.detail.isTrackingNowPlaying());

        w.openPicker();
        Q_EMIT w.pickers.back()->didPick({}); // it has vanished
        QVERIFY(w.isGone());
        QCOMPARE(w.shown(), 6U);
        w.openPicker();
        Q_EMIT w.pickers.back()->folderWanted();
        QVERIFY(w.isGone());
        QCOMPARE(w.openedSettings, 1);

        w.library.status = LibraryAuthorizationStatus::Denied;
        QCOMPARE(w.openPicker(), std::pair(0, 4));
        QVERIFY(w.takeAlert().endsWith(u"|Open Settings,Cancel|0"_s));
    }

    void nowPlayingComesAfterWhatIsPresentedHasGone()
    {
        Window w;
        w.systemPlayer.item = song(3);
        w.openPicker();
        w.detail.selectSongFromNowPlaying();
        QVERIFY(!w.presentation.isSheetVisible());
        QTRY_COMPARE(w.shown(), 3U);
        QVERIFY(!w.presentation.isPresenting());
        QVERIFY(w.detail.isTrackingNowPlaying());
        w.systemPlayer.item.reset();
        w.detail.selectSongFromNowPlaying(); // nothing is presented
        QVERIFY(w.takeAlert().startsWith(u"No Song Playing|"_s));
    }

    void dropsEndWithoutTheCatalog()
    {
        using enum LibraryAuthorizationStatus;
        const std::tuple<QString, LibraryAuthorizationStatus, QString> rows[]{
            // Before any question.
            {u"https://x.org?i=1"_s, Denied,
             u"Song Not Found|This doesn't seem to be an Apple Music song.|OK|0"_s},
            {u"https://music.apple.com/album/1"_s, Authorized,
             u"Song Not Found|This doesn't seem to be a valid song.|OK|0"_s},
            {songLink.arg(100), NotDetermined, u"0"_s},
            {songLink.arg(100), Denied,
             u"No Music Access|Trackwise does not currently have access to your music library. Please turn "
             "on Media & Apple Music access in the Settings app.|Open Settings,Cancel|0"_s},
            {songLink.arg(100), Restricted,
             u"No Music Access|Trackwise does not have access to your music library due to restrictions "
             "enabled on your device.|Open Settings,Cancel|0"_s},
            {songLink.arg(100), Authorized, u"1"_s},
            {songLink.arg(300), Authorized,
             u"Song Not Added to Library|This song needs to be added to your Music Library to access its "
             "information. You can do this in the Music app.|Open Music,Cancel|0"_s},
        };
        for (const auto &[dropped, status, outcome] : rows) {
            Window w;
            w.library.status = status;
            QCOMPARE(std::pair(dropped, w.drop(dropped)), std::pair(dropped, outcome));
            QVERIFY(w.http.requests.empty());
            QVERIFY(!w.detail.isTrackingNowPlaying());
        }
    }

    void dropsAskTheCatalog()
    {
        const std::pair<Result<QByteArray>, QString> rows[]{
            {replyWith("First"), u"1"_s},
            {replyWith("Second"), u"2"_s}, // the artist is spelt otherwise
            {replyWith("Elsewhere"), u"Song Not Added to Library"_s},
            {replyWith("Third"),
             u"Couldn't Find Song|Songs do need to be added to your library to get their info. If this song "
             "isn't in your library, add it then try again.|OK|0"_s},
            {QByteArray("<html>"), u"Failed to Look Up Song|You can try to find it via Select Song.|OK|0"_s},
            {Failure{FailureKind::NotFound, {}},
             u"Failed to Load Song|Please check your internet connection and try again. Or you can find it "
             "via Select Song without an internet connection.|OK|0"_s},
        };
        for (const auto &[reply, outcome] : rows) {
            Window w;
            QCOMPARE(w.drop(songLink.arg(200)), u"0"_s);
            QCOMPARE(w.http.requests.size(), 1u);
            QCOMPARE(w.http.requests.front().address,
                     QUrl(u"https://itunes.apple.com/lookup?id=200&entity=musicTrack"_s));
            QCOMPARE(w.http.requests.front().timeout, std::chrono::milliseconds(60'000));
            const QString came = w.answer(0, reply);
            QVERIFY2(came.startsWith(outcome), qPrintable(came));
        }
    }

    void twoDropsAreTwoChains()
    {
        Window w;
        for (const int identifier : {201, 202})
            QCOMPARE(w.drop(songLink.arg(identifier)), u"0"_s);
        QCOMPARE(w.answer(1, replyWith("Second")), u"2"_s);
        QCOMPARE(w.answer(0, replyWith("First")), u"1"_s);
    }

    void theMenuFollowsTheShownSong()
    {
        Window w;
        CommandMenu &menu = *w.detail.moreMenu();
        const QAbstractItemModelTester tester(&menu, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto rows = [&menu] {
            QString texts;
            for (int row = 0; row < menu.rowCount(); ++row)
                for (const int role : {CommandMenu::TitleRole, CommandMenu::SymbolRole,
                                       CommandMenu::EnabledRole, CommandMenu::StartsSectionRole})
                    texts += menu.index(row).data(role).toString() + u'|';
            return texts;
        };
        const QString whole =
            u"Now Playing|music.note|true|false|Music Recognition|waveform.circle|true|false|"
            "Clear Selected Song|xmark|%1|true|About|info.circle|true|true|"
            "Help|questionmark.circle|true|false|Settings|slider.horizontal|true|false|"_s;
        QCOMPARE(rows(), whole.arg(u"false"_s));
        w.systemPlayer.item = song(4);
        for (const int row : {-1, 6, 2}) // there is none, or it is off
            menu.trigger(row);
        w.settle();
        QCOMPARE(w.shown(), 0U);
        menu.setOpen(true);
        menu.trigger(0);
        QTRY_COMPARE(w.shown(), 4U);
        QCOMPARE(rows(), whole.arg(u"false"_s)); // nothing moves under the finger
        menu.setOpen(false);
        QCOMPARE(rows(), whole.arg(u"true"_s));
        menu.trigger(2);
        QCOMPARE(w.shown(), 0U);
        QCOMPARE(w.openedSettings, 0);
        menu.trigger(5);
        QCOMPARE(w.openedSettings, 1);
    }

    void lyricsAreThoseOfTheShownSongAndComeOnce()
    {
        Window w;
        MediaItem sung = song(1);
        sung.lyrics = u"La"_s;
        w.detail.displayMediaItem(sung, {});
        InformationView &list = *w.detail.informationView();
        for (int click = 0; click < 2; ++click)
            list.run(list.rows().more.back());
        QCOMPARE(w.presentation.pushedViews().size(), 1u);
        QCOMPARE(w.presentation.pushedViews().front()->title(), u"Lyrics"_s);
        QCOMPARE(w.presentation.pushedViews().front()->properties().value(u"lyrics"_s), QVariant(u"La"_s));
    }
};

QTEST_MAIN(tst_SongSources)
#include "tst_SongSources.moc"
