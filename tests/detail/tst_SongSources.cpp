// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowControllers.h"
#include "support/SyntheticLibrary.h"

#include <QAbstractItemModelTester>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

namespace {

struct PickersLibrary
{
    SyntheticLibrary songs{10};
    ScriptedScan scan;
};

/// Controllers with pickers, as many as are asked for, and a settings screen.
struct Window : PickersLibrary, WindowControllers
{
    Window()
        : WindowControllers([this](DetailServices &s) {
            s.makePicker = [this] {
                pickers.push_back(std::make_shared<MediaPicker>(songs, songs, scan));
                return pickers.back();
            };
            s.connectedScenes = [this] { return windows; };
            s.openSettings = [this](Presentation &) { ++openedSettings; };
        })
    {
        start();
        settle();
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

    void theMenuFollowsTheShownSong()
    {
        Window w;
        MoreMenu &menu = *w.detail.moreMenu();
        const QAbstractItemModelTester tester(&menu, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto rows = [&menu] {
            QString texts;
            for (int row = 0; row < menu.rowCount(); ++row)
                for (const int role : {MoreMenu::TitleRole, MoreMenu::SymbolRole, MoreMenu::EnabledRole,
                                       MoreMenu::StartsSectionRole})
                    texts += menu.index(row).data(role).toString() + u'|';
            return texts;
        };
        const QString whole = u"Now Playing|music.note|true|false|Clear Selected Song|xmark|%1|true|"
                              "Settings|slider.horizontal|true|true|"_s;
        QCOMPARE(rows(), whole.arg(u"false"_s));
        w.systemPlayer.item = song(4);
        for (const int row : {-1, 3, 1}) // there is none, or it is off
            menu.trigger(row);
        w.settle();
        QCOMPARE(w.shown(), 0U);
        menu.trigger(0);
        QTRY_COMPARE(w.shown(), 4U);
        QCOMPARE(rows(), whole.arg(u"true"_s));
        menu.trigger(1);
        QCOMPARE(w.shown(), 0U);
        QCOMPARE(w.openedSettings, 0);
        menu.trigger(2);
        QCOMPARE(w.openedSettings, 1);
    }

    void lyricsAreThoseOfTheShownSongAndComeOnce()
    {
        Window w;
        MediaItem sung = song(1);
        sung.lyrics = u"La"_s;
        w.detail.displayMediaItem(sung, false, true);
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
