// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/MediaPicker.h"
#include "support/ScriptedIndex.h"
#include "support/SyntheticLibrary.h"
#include "support/Test.h"
#include "support/ViewWindow.h"

#include <QSemaphore>
#include <QSignalSpy>

namespace {

struct ShownPicker
{
    SyntheticLibrary library;
    ScriptedScan scan;
    ScriptedIndex index;
    MediaPicker picker{library, library, scan, index};
    QSignalSpy picks{&picker, &MediaPicker::didPick};
    QSignalSpy cancels{&picker, &MediaPicker::didCancel};
};

/// The picker in a window of a phone's size.
struct PickerWindow : ShownPicker, ViewWindow
{
    explicit PickerWindow(int songCount)
        : ShownPicker{.library = SyntheticLibrary(songCount)}
        , ViewWindow({360, 720})
    {
        show("Picker/SongPickerView.qml", "picker", QVariant::fromValue(&picker));
        if (!QTest::qWaitFor([this] { return picker.songs()->isLoaded(); }))
            qFatal("the songs were never listed");
    }
    void type(const char *text)
    {
        for (; *text; ++text)
            QTest::keyClick(&window, *text);
    }
    [[nodiscard]] PersistentID picked() const
    {
        const auto items = picks.value(0).value(0).value<std::vector<MediaItem>>();
        return picks.size() == 1 && items.size() == 1 ? items.front().persistentID : PersistentID{};
    }
    /// The visible list and its row's item.
    [[nodiscard]] QQuickItem *list() const { return listBelow(window.rootObject()); }
    [[nodiscard]] static QQuickItem *listBelow(QQuickItem *item)
    {
        if (item->inherits("QQuickListView") && item->isVisible() && item->property("isCurrent").toBool())
            return item;
        for (QQuickItem *child : item->childItems()) {
            if (QQuickItem *list = listBelow(child))
                return list;
        }
        return nullptr;
    }
    [[nodiscard]] QQuickItem *rowItem(int row) const
    {
        QQuickItem *item = nullptr;
        QMetaObject::invokeMethod(list(), "itemAtIndex", Q_RETURN_ARG(QQuickItem *, item), Q_ARG(int, row));
        return item;
    }
    [[nodiscard]] qreal placeOf(int row)
    {
        const QQuickItem *item = rowItem(row);
        return item ? place(item).y() : -1;
    }
};

} // namespace

class tst_SongPicker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(u"en_US"_s)); }

    void arrowsAndReturnPickASong()
    {
        PickerWindow w(100000);
        w.press(Qt::Key_Return); // none is highlighted
        w.picker.activate(-1);
        w.picker.activate(100000);
        QCOMPARE(w.picks.size(), 0);
        QCOMPARE(w.picker.songs()->highlightedRow(), -1);
        w.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Up});
        QCOMPARE(w.picker.songs()->highlightedRow(), 0);
        w.press(Qt::Key_PageDown);
        QVERIFY(w.picker.songs()->highlightedRow() > 4);
        w.press(Qt::Key_End);
        QCOMPARE(w.picker.songs()->highlightedRow(), 99999);
        QTRY_VERIFY(w.rowItem(99999));
        w.press(Qt::Key_PageUp);
        QVERIFY(w.picker.songs()->highlightedRow() < 99995);
        w.press({Qt::Key_Home, Qt::Key_Down, Qt::Key_Return});
        QCOMPARE(w.picked(), PersistentID{20});

        w.library.blockSignals(true);
        w.library.remove({10});
        w.picker.prepare();
        w.picker.activate(0); // which has just vanished
        QCOMPARE(w.picks.size(), 2);
        QVERIFY(w.picks.at(1).at(0).value<std::vector<MediaItem>>().empty());
    }

    void typingFindsASong()
    {
        PickerWindow w(1000);
        w.type("song 000123");
        w.press(Qt::Key_Return); // perhaps before the results are there
        QTRY_COMPARE(w.picked(), PersistentID{1230});
    }

    void tellsScreenReadersOfResultsAndOfTheRow()
    {
        PickerWindow w(1000);
        w.type("song 00001");
        const QAccessibleInterface *field = QAccessible::queryAccessibleInterface(w.window.activeFocusItem());
        QTRY_COMPARE(field->text(QAccessible::Description), u"10 songs"_s);
        const auto told = [&w](int row) { return w.rowItem(row)->property("told").toString(); };
        w.press({Qt::Key_Down, Qt::Key_Down});
        QCOMPARE(told(0), QString());
        QTRY_COMPARE(told(1), u"Song 0000110, Artist 0000001"_s);
        w.press(Qt::Key_Escape);
        QCOMPARE(field->text(QAccessible::Description), QString());
        QCOMPARE(w.picker.results()->count(), 0); // nor are they seen until there are others
        w.type("zzz");
        QTRY_COMPARE(field->text(QAccessible::Description), u"No Results"_s);
    }

    void typingGoesToTheFieldFromTheList()
    {
        PickerWindow w(1000);
        w.list()->forceActiveFocus();
        QVERIFY(!w.picker.type(u" "_s) && !w.picker.type(u"a\u0007"_s));
        w.type("00");
        QCOMPARE(w.picker.searchText(), u"00"_s);
        w.type("7");
        QCOMPARE(w.picker.searchText(), u"007"_s);
        QTRY_COMPARE(w.picker.resultsSummary(), u"111 songs"_s);
        QCOMPARE(songCountText(1), u"1 song"_s);
        const QLocale before;
        QLocale::setDefault(QLocale(u"es"_s));
        QCOMPARE(songCountText(12345), u"12.345 songs"_s);
        QLocale::setDefault(before);
        w.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
        QCOMPARE(w.picked(), PersistentID{700});
        QVERIFY(w.picker.type(u"\U0001F3B5"_s));
        QCOMPARE(w.picker.searchText(), u"007\U0001F3B5"_s);
    }

    void takesTheKeysOfAListAndLeavesOthersToTheField()
    {
        PickerWindow w(100);
        const auto takes = [&w](int key, int modifiers = 0, bool isEditing = true) {
            return w.picker.handleKey(key, modifiers, isEditing);
        };
        for (const int key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return,
                              Qt::Key_Enter, Qt::Key_Escape}) {
            QVERIFY(takes(key) && takes(key, Qt::KeypadModifier) && !takes(key, Qt::ControlModifier));
            w.picker.prepare();
        }
        QVERIFY(takes(Qt::Key_Home, 0, false) && takes(Qt::Key_End, 0, false));
        QVERIFY(!takes(Qt::Key_Home) && !takes(Qt::Key_End) && !takes(Qt::Key_A));
        QVERIFY(!takes(Qt::Key_Back) && !takes(Qt::Key_Left, Qt::AltModifier)); // nowhere to go
        w.picker.setTab(MediaPicker::Tab::Albums);
        QTRY_COMPARE(w.picker.albums()->count(), 10);
        for (const auto &[key, modifiers] :
             {std::pair(Qt::Key_Back, Qt::NoModifier), std::pair(Qt::Key_Left, Qt::AltModifier)}) {
            w.picker.activate(3);
            QVERIFY(!takes(Qt::Key_Left) && w.picker.isShowingGroup());
            QVERIFY(takes(key, modifiers) && !w.picker.isShowingGroup());
        }
        w.picker.activate(3);
        w.picker.setTab(MediaPicker::Tab::Albums); // the tab that is chosen already
        QCOMPARE(w.picker.currentList(), w.picker.albums());
    }

    void escapeClearsThenGoesBackThenCancels()
    {
        PickerWindow w(1000);
        w.picker.setTab(MediaPicker::Tab::Albums);
        QTRY_COMPARE(w.picker.albums()->count(), 100);
        w.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
        QTRY_COMPARE(w.picker.groupSongs()->count(), 10);
        QTRY_COMPARE(w.picker.title(), u"Album 0000002"_s);
        w.type("zzz");
        QTRY_VERIFY(w.picker.isShowingResults());

        w.press(Qt::Key_Escape);
        QCOMPARE(w.picker.searchText(), QString());
        QVERIFY(w.picker.isShowingGroup());
        w.press(Qt::Key_Escape);
        QVERIFY(!w.picker.isShowingGroup());
        QCOMPARE(w.picker.albums()->highlightedRow(), 1);
        QCOMPARE(w.cancels.size(), 0);
        w.press(Qt::Key_Escape);
        QCOMPARE(w.cancels.size(), 1);
        QCOMPARE(w.picks.size(), 0);
    }

    void startsCleanOnTheLastTabWhenShownAgain()
    {
        PickerWindow w(1000);
        w.picker.setTab(MediaPicker::Tab::RecentlyAdded);
        QTRY_COMPARE(w.picker.recentlyAdded()->count(), 1000);
        w.press(Qt::Key_Down);
        w.type("000");
        w.picker.cancel();
        w.library.insert({25});
        QTest::qWait(0);
        QCOMPARE(w.picker.recentlyAdded()->count(), 1000); // nobody looks

        w.picker.prepare();
        QCOMPARE(w.picker.tab(), MediaPicker::Tab::RecentlyAdded);
        QCOMPARE(w.picker.searchText(), QString());
        QCOMPARE(w.picker.recentlyAdded()->highlightedRow(), -1);
        QTRY_COMPARE(w.picker.recentlyAdded()->count(), 1001);
    }

    void picksOnceForADoubleClick()
    {
        PickerWindow w(100);
        QTRY_VERIFY(w.placeOf(0) > 0);
        QTest::mouseDClick(&w.window, Qt::LeftButton, {}, {100, qRound(w.placeOf(0)) + 20});
        QCOMPARE(w.picked(), PersistentID{10});
        w.picker.cancel();
        QCOMPARE(w.cancels.size(), 0);

        w.picker.prepare(); // nor does it pick a song of the artist that its first click opens
        w.picker.setTab(MediaPicker::Tab::Artists);
        QTRY_COMPARE(w.picker.artists()->count(), 1);
        QTRY_VERIFY(w.placeOf(0) > 0);
        const QPoint artist{100, qRound(w.placeOf(0)) + 20};
        QTest::mouseClick(&w.window, Qt::LeftButton, {}, artist);
        QTRY_COMPARE(w.picker.groupSongs()->count(), 100);
        const auto items = w.window.findChildren<QQuickItem *>();
        const auto *pages = *std::ranges::find_if(items, [](QQuickItem *item) {
            return QByteArray(item->metaObject()->className()).startsWith("PickerPages");
        });
        const auto opened = [pages] { return pages->property("opened").toReal(); };
        QTRY_VERIFY(opened() > 0.1 && w.placeOf(0) > 0); // slides in from the right
        const QPoint song{w.window.width() - 20, qRound(w.placeOf(0)) + 20};
        const bool isOpening = opened() < 1; // where that took too long, it is a click
        QTest::mouseClick(&w.window, Qt::LeftButton, {}, song);
        QCOMPARE(w.picks.size(), isOpening ? 1 : 2);
        QTRY_COMPARE(w.placeOf(0) > 0 && w.rowItem(0)->isEnabled(), true);
    }

    void rowsInViewStayWhereTheyAreWhileAScanAddsSongs()
    {
        for (const int added : {5, 2000}) {
            PickerWindow w(10000);
            w.picker.songs()->highlight(5000);
            QTRY_VERIFY(w.placeOf(5000) > 0);
            w.picker.songs()->highlight(-1);
            const qreal place = w.placeOf(5000);

            w.library.blockSignals(true);
            for (int i = 0; i < added; ++i) // before and after the rows in view, not between them
                w.library.insert({static_cast<std::uint64_t>(i % 2 ? 1005 + i * 10 : 60005 + i * 10)});
            w.library.blockSignals(false);
            Q_EMIT w.library.libraryDidChange();
            QTRY_COMPARE(w.picker.songs()->count(), 10000 + added);
            const int moved = 5000 + added / 2;
            QTRY_VERIFY(w.rowItem(moved));
            QTRY_COMPARE(w.placeOf(moved), place);
            QTRY_COMPARE(w.rowItem(moved)->property("title").toString(), SyntheticLibrary::titleOf({50010}));
        }
    }

    void saysWhyThereIsNothing()
    {
        PickerWindow w(0);
        QCOMPARE(w.picker.emptyState().title, u"No Music Found"_s);
        QVERIFY(w.find(u"Choose Folder…"_s, QAccessible::Button));

        w.scan.report({.isRunning = true, .filesFound = 5678, .filesHandled = 1234, .isTotalKnown = true});
        QCOMPARE(w.picker.emptyState().title, u"Looking for Music"_s);
        QVERIFY(w.find(u"Reading music: 1,234 of 5,678"_s, QAccessible::ProgressBar));
        w.picker.scan()->cancel();
        QVERIFY(!w.picker.scan()->isRunning());
        w.scan.report({.isRunning = true, .isQuiet = true}); // of a file that was added just now
        QCOMPARE(w.picker.emptyState().title, u"No Music Found"_s);
        QVERIFY(!w.picker.scan()->isRunning());
        QCOMPARE(w.scan.looked, 1); // when it was opened
        QCOMPARE(w.scan.started, 0);
        w.click(Qt::LeftButton, u"Scan Again"_s);
        QCOMPARE(w.scan.started, 1);

        w.type("<i>x</i>");
        QTRY_COMPARE(w.picker.emptyState().message, u"No song matches “<i>x</i>”."_s);
    }

    void tellsHowFarListeningHasCome()
    {
        using Activity = RecognitionIndexState::Activity;
        PickerWindow w(100);
        const auto bar = [&](qsizetype done) {
            const QString text = u"Listening to music: %1 of 2,000"_s.arg(QLocale().toString(done));
            return w.find(text, QAccessible::ProgressBar);
        };
        const std::tuple<Activity, qsizetype, QString, bool> rows[]{
            {Activity::Working, 1976, {}, false}, // of a few songs nobody needs to know
            {Activity::Paused, 100, {}, false},   // nor of what was paused long ago
            {Activity::Working, 1975, u"So that it can be recognized"_s, true},
            {Activity::Working, 1999, u"So that it can be recognized"_s, true},
            {Activity::Paused, 1999, u"Paused"_s, true},
            {Activity::SavingPower, 1999, u"Paused: saving power"_s, true},
            {Activity::Idle, 1999, {}, false}}; // one cannot be read
        for (const auto &[activity, done, note, isShown] : rows) {
            w.index.report({activity, done, 2000});
            const auto shown = bar(done);
            QCOMPARE(bool(shown), isShown);
            QVERIFY(!shown || shown->property("note").toString() == note);
        }
        w.index.report({Activity::Working, 500, 2000});
        QCOMPARE(w.picker.listening()->fraction(), 0.25);
        w.click(Qt::LeftButton, u"Pause Listening to Music"_s);
        w.index.report({Activity::Paused, 500, 2000});
        w.click(Qt::LeftButton, u"Go On Listening to Music"_s);
        QCOMPARE(w.index.asked, u"pg"_s);
        w.scan.report({.isRunning = true});
        QVERIFY(!bar(500)); // one thing at a time
        w.scan.report({});
        w.picker.prepare();
        QVERIFY(!bar(500));
    }

    void theLabelAtTheTopFollowsTheRows()
    {
        PickerWindow w(10000);
        QTRY_VERIFY(w.rowItem(0));
        const auto atTop = [&w] {
            for (const QQuickItem *item :
                 w.list()->property("contentItem").value<QQuickItem *>()->childItems()) {
                if (item->property("label").isValid() && item->mapToItem(w.list(), {0, 0}).y() == 0)
                    return item->property("label").toString();
            }
            return QString();
        };
        for (const int row : {5000, 9999, 7000}) {
            w.picker.songs()->highlight(row);
            const QModelIndex first = w.picker.songs()->index(row - 5); // in view, above the row
            QTRY_COMPARE(atTop(), first.data(LibraryListModel::SectionRole).toString());
        }
    }

    void fourRowsFitIntoALowSheet()
    {
        PickerWindow w(1000);
        w.window.resize(540, 336); // of a window of 720 by 360 points
        QTRY_VERIFY(w.rowItem(3));
        QTRY_VERIFY(w.placeOf(3) + w.rowItem(3)->height() <= 336);
        QVERIFY(w.placeOf(0) > 0);
        QVERIFY(!w.find(u"Select Song"_s, QAccessible::Heading));
        w.window.resize(540, 720);
        QTRY_VERIFY(w.find(u"Select Song"_s, QAccessible::Heading));
    }

    void isSpoken()
    {
        PickerWindow w(1000);
        QTRY_VERIFY(w.rowItem(0));
        QVERIFY(w.find(u"Select Song"_s, QAccessible::Heading) && w.find(u"Cancel"_s, QAccessible::Button));
        QVERIFY(w.find(u"Search Songs"_s, QAccessible::EditableText));
        for (const QString &tab : {u"Songs"_s, u"Recently Added"_s})
            QVERIFY(w.find(tab, QAccessible::PageTab));
        for (const QString &row :
             {u"Song 0000010, Artist 0000001"_s, u"Song 0000070, Artist 0000001, explicit"_s})
            QVERIFY(w.find(row, QAccessible::ListItem));
    }
};

QTEST_MAIN(tst_SongPicker)
#include "tst_SongPicker.moc"
