// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/ListWindow.h"
#include "ui/Engine.h"

#include <QClipboard>
#include <QFontMetricsF>
#include <QSignalSpy>
#include <QTcpServer>

#include <cmath>

using namespace trackwise;

namespace {

MediaItem shortSong()
{
    MediaItem song;
    song.title = QStringLiteral("Golden Hour Lines");
    song.artist = QStringLiteral("The Quiet Machines");
    song.rating = 4;
    song.lyrics = QStringLiteral("La");
    return song;
}

const QStringList collapsedNames{
    QStringLiteral("Information"),
    QStringLiteral("Show More"),
    QStringLiteral("Title, Golden Hour Lines"),
    QStringLiteral("Artist, The Quiet Machines"),
    QStringLiteral("Album, --"),
    QStringLiteral("Album artist, --"),
    QStringLiteral("Composer, --"),
    QStringLiteral("Genre, --"),
    QStringLiteral("Release date, --"),
    QStringLiteral("Duration, --"),
    QStringLiteral("Play count, 0"),
    QStringLiteral("Last played, --"),
};
const QStringList moreNames{
    QStringLiteral("Grouping, --"),
    QStringLiteral("Track, --"),
    QStringLiteral("Disc number, --"),
    QStringLiteral("Compilation, No"),
    QStringLiteral("Explicit, No"),
    QStringLiteral("Rating, 4 stars"),
    QStringLiteral("BPM, --"),
    QStringLiteral("Skip count, 0"),
    QStringLiteral("Date added, --"),
    QStringLiteral("Comments, --"),
    QStringLiteral("Lyrics, Show Lyrics"),
};

constexpr qreal padding = 9;
constexpr qreal hairline = 1;

// Of one line of the caption style: letters of some fonts are taller than the line.
qreal captionHeight(ListWindow &list)
{
    const TextStyle style = themeOf(*list.window.engine()).caption();
    return std::max(style.lineHeight, std::ceil(QFontMetricsF(style.font).height()));
}

} // namespace

class tst_InformationView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsOutOneElementForEachRow()
    {
        ListWindow list(shortSong());
        QCOMPARE(list.names(), collapsedNames);
        QAccessibleInterface *heading =
            QAccessible::queryAccessibleInterface(list.find(QStringLiteral("Information")));
        QCOMPARE(heading->role(), QAccessible::Heading);
    }

    void theSwitchWorksFromTheKeyboardAndIsRemembered()
    {
        ListWindow list(shortSong());
        list.press(Qt::Key_Tab);
        list.press(Qt::Key_Space);
        QStringList expanded = collapsedNames + moreNames;
        expanded[1] = QStringLiteral("Show Less");
        QCOMPARE(list.names(), expanded);
        QVERIFY(list.preferences.showMoreInformation());

        list.press(Qt::Key_Return);
        QCOMPARE(list.names(), collapsedNames);
        QVERIFY(!list.preferences.showMoreInformation());
    }

    void theLyricsRowIsAButton()
    {
        int shown = 0;
        ListWindow list(shortSong(), {1024, 1024}, {}, [&shown] { ++shown; });
        list.information.toggleShowMoreInformation();
        const auto top = [&list](const char *name) {
            return list.find(QString::fromLatin1(name))->mapToScene({}).y();
        };
        QVERIFY(top("Lyrics") > top("Comments")); // at once: the next click may come before the next frame
        QAccessibleInterface *row =
            QAccessible::queryAccessibleInterface(list.find(QStringLiteral("Lyrics")));
        QCOMPARE(row->role(), QAccessible::Button);
        row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(shown, 1);
        list.click(Qt::LeftButton, QStringLiteral("Lyrics"));
        QCOMPARE(shown, 2);
        list.click(Qt::RightButton, QStringLiteral("Lyrics"));
        QVERIFY(!list.find(QStringLiteral("Copy")));
    }

    void showsMarkupAsWrittenAndFetchesNothing()
    {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        const QString hostile =
            QStringLiteral("<b>x</b><img src=\"http://127.0.0.1:%1/x\">").arg(server.serverPort());
        MediaItem song;
        for (auto field :
             {&MediaItem::title, &MediaItem::artist, &MediaItem::albumTitle, &MediaItem::albumArtist,
              &MediaItem::composer, &MediaItem::genre, &MediaItem::userGrouping, &MediaItem::comments})
            song.*field = hostile;
        ListWindow list(song, {360, 1200});
        list.information.toggleShowMoreInformation();
        QVERIFY(!list.window.grabWindow().isNull());
        QVERIFY(list.find(QStringLiteral("Comments, ") + hostile));
        QVERIFY(!QSignalSpy(&server, &QTcpServer::newConnection).wait(300));
        QVERIFY(!server.hasPendingConnections());

        for (const QQuickItem *item : list.window.rootObject()->findChildren<QQuickItem *>()) {
            if (const QVariant format = item->property("textFormat"); format.isValid())
                QCOMPARE(format.toInt(), static_cast<int>(Qt::PlainText));
        }
    }

    void marginsFollowTheWidthOfTheWindow_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<qreal>("margin");
        QTest::newRow("phone") << 360 << 18.0;
        QTest::newRow("just compact") << 699 << 18.0;
        QTest::newRow("just regular") << 700 << 22.0;
        QTest::newRow("widest column") << 994 << 22.0;
        QTest::newRow("very wide") << 1920 << (1920 - 950) / 2.0;
    }
    void marginsFollowTheWidthOfTheWindow()
    {
        QFETCH(int, width);
        QFETCH(qreal, margin);
        ListWindow list(shortSong(), {width, 720});
        const QRectF row = list.place(QStringLiteral("Title"));
        QCOMPARE(row.left(), margin);
        QCOMPARE(row.right(), width - margin);
        QCOMPARE(list.place(QStringLiteral("Show More")).right(), width - margin);
    }

    void rowsGrowWithTheirTextAndTouch()
    {
        MediaItem song = shortSong();
        song.artist = QString(200, u'x');
        ListWindow list(song, {360, 720});
        const QRectF title = list.place(QStringLiteral("Title"));
        const QRectF artist = list.place(QStringLiteral("Artist"));
        QCOMPARE(title.height(), captionHeight(list) + 2 * padding + hairline);
        QCOMPARE(artist.top(), title.bottom());
        const qreal furtherLines = (artist.height() - title.height()) / 16; // points, in the caption style
        QVERIFY(furtherLines >= 2);
        QCOMPARE(furtherLines, std::round(furtherLines));
    }

    void stacksAtTheLargestTextSizes_data()
    {
        QTest::addColumn<int>("textSize");
        QTest::addColumn<bool>("stacks");
        QTest::newRow("largest of the usual sizes") << 6 << false;
        QTest::newRow("smallest accessibility size") << 7 << true;
    }
    void stacksAtTheLargestTextSizes()
    {
        QFETCH(int, textSize);
        QFETCH(bool, stacks);
        ListWindow list(shortSong(), {1024, 768});
        list.information.toggleShowMoreInformation();
        for (const int size : {7, 6, textSize}) // there and back while it is shown
            themeOf(*list.window.engine()).setSettings({.textSize = size});
        const qreal line = captionHeight(list);
        const QRectF switchPlace = list.place(QStringLiteral("Show Less"));
        const QRectF heading = list.place(QStringLiteral("Information"));
        const QRectF lyrics = list.place(QStringLiteral("Lyrics, Show Lyrics"));
        const QRectF title = list.place(QStringLiteral("Title"));
        QVERIFY(heading.width() > 100);
        for (const QRectF &button : {switchPlace, lyrics}) {
            QVERIFY(button.width() < title.width() / 2);
            QCOMPARE(stacks ? button.left() : button.right(), stacks ? title.left() : title.right());
        }
        QCOMPARE(switchPlace.top() >= heading.bottom(), stacks);
        // Stacked, the value's padding above it covers the title's padding below.
        const qreal expected = stacks ? 2 * line + 3 * padding + hairline : line + 2 * padding + hairline;
        QVERIFY(qAbs(title.height() - expected) <= 1); // the value's height is rounded up
    }

    void keepsTheFocusedRowInSight()
    {
        ListWindow list(shortSong(), {360, 300});
        const QString last = QStringLiteral("Last played");
        QVERIFY(list.place(last).top() > 300);
        for (int i = 0; i < 11; ++i)
            list.press(Qt::Key_Tab);
        QCOMPARE(list.window.activeFocusItem(), list.find(last));
        QTRY_VERIFY(list.place(last).bottom() <= 300);
        list.press(Qt::Key_Home);
        QTRY_VERIFY(list.place(QStringLiteral("Information")).top() >= 30);
        list.press(Qt::Key_End);
        QTRY_VERIFY(list.place(last).bottom() + 25 <= 300);
        list.press(Qt::Key_PageUp);
        QTRY_VERIFY(list.place(last).bottom() > 300);
    }

    void onlyTheKeyboardScrollsToAFocusedRow_data()
    {
        QTest::addColumn<Qt::FocusReason>("reason");
        QTest::addColumn<bool>("scrolls");
        QTest::newRow("tab") << Qt::TabFocusReason << true;
        QTest::newRow("backtab") << Qt::BacktabFocusReason << true;
        QTest::newRow("shortcut") << Qt::ShortcutFocusReason << true;
        QTest::newRow("click") << Qt::MouseFocusReason << false;
        QTest::newRow("a menu closed") << Qt::PopupFocusReason << false;
        QTest::newRow("a sheet closed") << Qt::OtherFocusReason << false;
        QTest::newRow("the window came back") << Qt::ActiveWindowFocusReason << false;
    }
    void onlyTheKeyboardScrollsToAFocusedRow()
    {
        QFETCH(Qt::FocusReason, reason);
        QFETCH(bool, scrolls);
        ListWindow list(shortSong(), {360, 300}, {.reducesMotion = true}); // scrolls at once
        const qreal top = list.place(QStringLiteral("Information")).top();
        const QString last = QStringLiteral("Last played");
        list.find(last)->forceActiveFocus(reason);
        QCoreApplication::processEvents();
        QCOMPARE(list.place(last).bottom() <= 300, scrolls);
        QCOMPARE(list.place(QStringLiteral("Information")).top() == top, !scrolls);
    }

    void aRowThatIsLongerThanThePageStaysWhereItIs()
    {
        MediaItem song = shortSong();
        song.title = QStringLiteral("La la la\n").repeated(100);
        ListWindow list(song, {360, 300}, {.reducesMotion = true});
        const QRectF row = list.place(QStringLiteral("Title"));
        list.press(Qt::Key_Tab);
        list.press(Qt::Key_Tab);
        QCoreApplication::processEvents();
        QCOMPARE(list.window.activeFocusItem(), list.find(QStringLiteral("Title")));
        QCOMPARE(list.place(QStringLiteral("Title")), row);
        list.press(Qt::Key_Tab); // the row below all that
        QTRY_VERIFY(list.place(QStringLiteral("Artist")).bottom() <= 300);
        list.press(Qt::Key_Backtab); // its end is still in sight
        const qreal bottom = list.place(QStringLiteral("Title")).bottom();
        QVERIFY(bottom > 0);
        list.press(Qt::Key_Home);
        QTRY_COMPARE(list.place(QStringLiteral("Title")), row);
    }

    void anotherSongStartsAtTheTop()
    {
        ListWindow list(shortSong(), {360, 300});
        const qreal top = list.place(QStringLiteral("Information")).top();
        list.press(Qt::Key_End);
        QTRY_VERIFY(list.place(QStringLiteral("Last played")).bottom() + 25 <= 300);
        QQuickItem *focused = list.find(QStringLiteral("Last played"));
        focused->forceActiveFocus(Qt::TabFocusReason);
        MediaItem song;
        song.title = QStringLiteral("Another");
        list.showInstead(song);
        QCOMPARE(list.place(QStringLiteral("Information")).top(), top);
        QVERIFY(!focused->hasActiveFocus());
        list.press(Qt::Key_PageDown); // the page has the focus now
        QTRY_VERIFY(list.place(QStringLiteral("Information")).top() < top);
    }

    void valuesOfTheShownSongFollowInPlace()
    {
        MediaItem song = shortSong();
        song.persistentID = PersistentID{1};
        ListWindow list(song, {360, 300}, {.reducesMotion = true}); // which scrolls at once
        list.information.toggleShowMoreInformation();
        const QString lyrics = QStringLiteral("Lyrics, Show Lyrics");
        list.press(Qt::Key_End);
        QTRY_VERIFY(list.place(lyrics).bottom() + 25 <= 300);
        QQuickItem *comments = list.find(QStringLiteral("Comments"));
        comments->forceActiveFocus(Qt::TabFocusReason);
        const QRectF place = list.place(lyrics);

        song.title = QStringLiteral("Golden Hour");
        song.comments = QStringLiteral("Live");
        song.playCount = 1;
        list.information.setMediaItem(song);
        QStringList expected = collapsedNames + moreNames;
        expected[1] = QStringLiteral("Show Less");
        expected[2] = QStringLiteral("Title, Golden Hour");
        expected[10] = QStringLiteral("Play count, 1");
        expected[21] = QStringLiteral("Comments, Live");
        QCOMPARE(list.names(), expected);
        QCOMPARE(list.place(lyrics), place);
        QCOMPARE(list.window.activeFocusItem(), comments);
        list.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Live"));
    }

    void theArtworkStandsAboveTheListInNarrowWindows()
    {
        ListWindow list(shortSong(), {360, 720});
        const qreal without = list.place(QStringLiteral("Information")).top();
        QQmlComponent block(list.window.engine());
        block.setData("import QtQuick\nItem { implicitHeight: 100; Accessible.role: Accessible.Graphic; "
                      "Accessible.name: 'Artwork' }",
                      {});
        list.window.rootObject()->setProperty("artworkBlock", QVariant::fromValue(&block));
        QTRY_COMPARE(list.place(QStringLiteral("Artwork")), QRectF(18, 15, 324, 100));
        QCOMPARE(list.place(QStringLiteral("Information")).top(), without + 15 + 100 + 15 + 1);
        list.window.resize(1024, 768);
        QTRY_COMPARE(list.place(QStringLiteral("Information")).top(), without);
        QVERIFY(!list.find(QStringLiteral("Artwork")));
        list.window.rootObject()->setProperty("artworkBlock", QVariant::fromValue<QQmlComponent *>(nullptr));
    }
};

QTEST_MAIN(tst_InformationView)
#include "tst_InformationView.moc"
