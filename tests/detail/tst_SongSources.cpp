// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowControllers.h"
#include "support/SyntheticLibrary.h"

#include <QAbstractItemModelTester>
#include <QTest>

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
    void settle() const
    {
        QThreadPool::globalInstance()->waitForDone(); // the question whether the library may be used
        QCoreApplication::processEvents();
    }
    void openPicker()
    {
        detail.selectSongFromLibrary();
        settle();
        if (sheet())
            pickers.back()->prepare(); // as its view does
    }
    [[nodiscard]] const QObject *sheet() const
    {
        return presentation.isSheetVisible() ? presentation.sheet()->model() : nullptr;
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
        w.openPicker();
        QCOMPARE(w.pickers.size(), 1u);
        QVERIFY(w.sheet() == w.pickers.at(0).get());
        w.openPicker(); // it stands already
        w.pickers.at(0)->cancel();
        QTRY_VERIFY(!w.presentation.isPresenting());
        w.openPicker();
        QCOMPARE(w.pickers.size(), 1u);
        QVERIFY(w.sheet() == w.pickers.at(0).get());
        w.presentation.cancelSheet();
        QTRY_VERIFY(!w.presentation.isPresenting());

        w.windows = 2;
        w.openPicker();
        QCOMPARE(w.pickers.size(), 2u);
        QVERIFY(w.sheet() == w.pickers.at(1).get());
        Q_EMIT w.pickers.at(0)->didPick({song(5)}); // nobody listens to it any more
        QCOMPARE(w.shown(), 0U);
        Q_EMIT w.pickers.at(1)->didPick({song(6), song(7)});
        QTRY_VERIFY(!w.presentation.isPresenting());
        QCOMPARE(w.shown(), 6U);
        QVERIFY(!w.detail.isTrackingNowPlaying());

        w.openPicker();
        Q_EMIT w.pickers.back()->didPick({}); // it has vanished
        QTRY_VERIFY(!w.presentation.isPresenting());
        QCOMPARE(w.shown(), 6U);
        QVERIFY(!w.presentation.alert());
        w.openPicker();
        Q_EMIT w.pickers.back()->folderWanted();
        QTRY_COMPARE(w.openedSettings, 1);
        QVERIFY(!w.presentation.isPresenting());
    }

    void needsAccessForThePicker()
    {
        Window w;
        w.library.status = LibraryAuthorizationStatus::Denied;
        w.openPicker();
        QVERIFY(w.pickers.empty());
        QCOMPARE(w.presentation.alert()->actionTitles(),
                 QStringList({QStringLiteral("Open Settings"), QStringLiteral("Cancel")}));
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
        QTRY_VERIFY(w.presentation.alert());
        QCOMPARE(w.presentation.alert()->title(), QStringLiteral("No Song Playing"));
    }

    void theMenuFollowsTheShownSong()
    {
        Window w;
        MoreMenu &menu = *w.detail.moreMenu();
        const QAbstractItemModelTester tester(&menu, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto rows = [&menu] {
            QStringList texts;
            for (int row = 0; row < menu.rowCount(); ++row) {
                const QModelIndex at = menu.index(row);
                texts << at.data(MoreMenu::TitleRole).toString() + u'|' +
                             at.data(MoreMenu::SymbolRole).toString() +
                             (at.data(MoreMenu::EnabledRole).toBool() ? QString() : QStringLiteral("|off")) +
                             (at.data(MoreMenu::StartsSectionRole).toBool() ? QStringLiteral("|section")
                                                                            : QString());
            }
            return texts;
        };
        QStringList expected{QStringLiteral("Now Playing|music.note"),
                             QStringLiteral("Clear Selected Song|xmark|off|section"),
                             QStringLiteral("Settings|slider.horizontal|section")};
        QCOMPARE(rows(), expected);
        w.systemPlayer.item = song(4);
        for (const int row : {-1, 3, 1}) // there is none, or it is off
            menu.trigger(row);
        w.settle();
        QCOMPARE(w.shown(), 0U);
        menu.trigger(0);
        QTRY_COMPARE(w.shown(), 4U);
        expected[1] = QStringLiteral("Clear Selected Song|xmark|section");
        QCOMPARE(rows(), expected);
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
        sung.lyrics = QStringLiteral("La");
        w.detail.displayMediaItem(sung, false, true);
        InformationView &list = *w.detail.informationView();
        for (int click = 0; click < 2; ++click)
            list.run(list.rows().more.back());
        QCOMPARE(w.presentation.pushedViews().size(), 1u);
        QCOMPARE(w.presentation.pushedViews().front()->title(), QStringLiteral("Lyrics"));
        QCOMPARE(w.presentation.pushedViews().front()->properties().value(QStringLiteral("lyrics")),
                 QVariant(QStringLiteral("La")));
    }
};

QTEST_MAIN(tst_SongSources)
#include "tst_SongSources.moc"
