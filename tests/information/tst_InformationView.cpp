// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/ListWindow.h"
#include "support/Test.h"
#include "ui/Engine.h"

#include <QClipboard>
#include <QFontMetricsF>
#include <QSignalSpy>
#include <QTcpServer>

#include <cmath>

namespace {

const MediaItem shortSong{.title = u"Golden Hour Lines"_s,
                          .artist = u"The Quiet Machines"_s,
                          .lyrics = u"La"_s,
                          .rating = 4,
                          .persistentID = {1}};

const QStringList collapsedNames =
    u"Information|Show More|Title, Golden Hour Lines|Artist, The Quiet Machines|Album, --|Album artist, --|"
    "Composer, --|Genre, --|Release date, --|Duration, --|Play count, 0|Last played, --"_s.split(u'|');
const QStringList moreNames =
    u"Grouping, --|Track, --|Disc number, --|Compilation, No|Explicit, No|Rating, 4 stars|"
    "BPM, --|Skip count, 0|Date added, --|Comments, --|Lyrics, Show Lyrics"_s.split(u'|');

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
    void theSwitchWorksFromTheKeyboardAndIsRemembered()
    {
        ListWindow list(shortSong);
        QVERIFY(list.find(u"Information"_s, QAccessible::Heading));
        list.press({Qt::Key_Tab, Qt::Key_Space});
        QStringList expanded = collapsedNames + moreNames;
        expanded[1] = u"Show Less"_s;
        QCOMPARE(list.names(), expanded);
        QVERIFY(list.preferences.showMoreInformation());

        list.press(Qt::Key_Return);
        QCOMPARE(list.names(), collapsedNames);
        QVERIFY(!list.preferences.showMoreInformation());
    }

    void theLyricsRowIsAButton()
    {
        int shown = 0;
        ListWindow list(shortSong, {1024, 1024}, {}, [&shown] { ++shown; });
        list.information.toggleShowMoreInformation();
        const auto top = [&list](const char *name) {
            return list.find(QString::fromLatin1(name))->mapToScene({}).y();
        };
        QVERIFY(top("Lyrics") > top("Comments")); // at once: the next click may come before the next frame
        QAccessibleInterface *row = QAccessible::queryAccessibleInterface(list.find(u"Lyrics"_s));
        QCOMPARE(row->role(), QAccessible::Button);
        row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(shown, 1);
        list.click(Qt::LeftButton, u"Lyrics"_s);
        QCOMPARE(shown, 2);
        list.click(Qt::RightButton, u"Lyrics"_s);
        QVERIFY(!list.find(u"Copy"_s));
    }

    void showsMarkupAsWrittenAndFetchesNothing()
    {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        const QString hostile = u"<b>x</b><img src=\"http://127.0.0.1:%1/x\">"_s.arg(server.serverPort());
        MediaItem song;
        for (auto field :
             {&MediaItem::title, &MediaItem::artist, &MediaItem::albumTitle, &MediaItem::albumArtist,
              &MediaItem::composer, &MediaItem::genre, &MediaItem::userGrouping, &MediaItem::comments})
            song.*field = hostile;
        ListWindow list(song, {360, 1200});
        list.information.toggleShowMoreInformation();
        QVERIFY(!list.window.grabWindow().isNull());
        QVERIFY(list.find(u"Comments, "_s + hostile));
        QVERIFY(!QSignalSpy(&server, &QTcpServer::newConnection).wait(300));
        QVERIFY(!server.hasPendingConnections());

        for (const QQuickItem *item : list.window.rootObject()->findChildren<QQuickItem *>()) {
            if (const QVariant format = item->property("textFormat"); format.isValid())
                QCOMPARE(format.toInt(), static_cast<int>(Qt::PlainText));
        }
    }

    void marginsFollowTheWidthOfTheWindow()
    {
        ListWindow list(shortSong, {360, 720});
        for (const auto &[width, margin] : {std::pair(360, 18.0), std::pair(699, 18.0), std::pair(700, 22.0),
                                            std::pair(994, 22.0), std::pair(1920, (1920 - 950) / 2.0)}) {
            list.window.resize(width, 720);
            QTRY_COMPARE(list.place(u"Title"_s).right(), width - margin);
            QCOMPARE(list.place(u"Title"_s).left(), margin);
            QCOMPARE(list.place(u"Show More"_s).right(), width - margin);
        }
    }

    void rowsGrowWithTheirTextAndTouch()
    {
        MediaItem song = shortSong;
        song.artist = QString(200, u'x');
        ListWindow list(song, {360, 720});
        const QRectF title = list.place(u"Title"_s);
        const QRectF artist = list.place(u"Artist"_s);
        QCOMPARE(title.height(), captionHeight(list) + 2 * padding + hairline);
        QCOMPARE(artist.top(), title.bottom());
        const qreal furtherLines = (artist.height() - title.height()) / 16; // points, in the caption style
        QVERIFY(furtherLines >= 2);
        QCOMPARE(furtherLines, std::round(furtherLines));
    }

    void stacksAtTheLargestTextSizes()
    {
        ListWindow list(shortSong, {1024, 768});
        list.information.toggleShowMoreInformation();
        for (const bool stacks : {true, false, true}) { // there and back while it is shown
            themeOf(*list.window.engine())
                .setSettings({.textScale = stacks ? 1.64 : 1.35, .isAccessibilitySize = stacks});
            const qreal line = captionHeight(list);
            const QRectF switchPlace = list.place(u"Show Less"_s);
            const QRectF heading = list.place(u"Information"_s);
            const QRectF lyrics = list.place(u"Lyrics, Show Lyrics"_s);
            const QRectF title = list.place(u"Title"_s);
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
    }

    void keepsTheFocusedRowInSight()
    {
        ListWindow list(shortSong, {360, 300});
        const QString last = u"Last played"_s;
        QVERIFY(list.place(last).top() > 300);
        for (int i = 0; i < 11; ++i)
            list.press(Qt::Key_Tab);
        QCOMPARE(list.window.activeFocusItem(), list.find(last));
        QTRY_VERIFY(list.place(last).bottom() <= 300);
        list.press(Qt::Key_Home);
        QTRY_VERIFY(list.place(u"Information"_s).top() >= 30);
        list.press(Qt::Key_End);
        QTRY_VERIFY(list.place(last).bottom() + 25 <= 300);
        list.press(Qt::Key_PageUp);
        QTRY_VERIFY(list.place(last).bottom() > 300);
    }

    void onlyTheKeyboardScrollsToAFocusedRow()
    {
        for (const Qt::FocusReason reason :
             {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::ShortcutFocusReason, Qt::MouseFocusReason,
              Qt::PopupFocusReason, Qt::OtherFocusReason, Qt::ActiveWindowFocusReason}) {
            const bool scrolls = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                                 reason == Qt::ShortcutFocusReason;
            ListWindow list(shortSong, {360, 300}, {.reducesMotion = true}); // scrolls at once
            const qreal top = list.place(u"Information"_s).top();
            list.find(u"Last played"_s)->forceActiveFocus(reason);
            QCoreApplication::processEvents();
            QCOMPARE(list.place(u"Last played"_s).bottom() <= 300, scrolls);
            QCOMPARE(list.place(u"Information"_s).top() == top, !scrolls);
        }
    }

    void aRowThatIsLongerThanThePageStaysWhereItIs()
    {
        MediaItem song = shortSong;
        song.title = u"La la la\n"_s.repeated(100);
        ListWindow list(song, {360, 300}, {.reducesMotion = true});
        const QRectF row = list.place(u"Title"_s);
        list.press({Qt::Key_Tab, Qt::Key_Tab});
        QCoreApplication::processEvents();
        QCOMPARE(list.window.activeFocusItem(), list.find(u"Title"_s));
        QCOMPARE(list.place(u"Title"_s), row);
    }

    void anotherSongStartsAtTheTop()
    {
        ListWindow list(shortSong, {360, 300});
        const qreal top = list.place(u"Information"_s).top();
        list.press(Qt::Key_End);
        QTRY_VERIFY(list.place(u"Last played"_s).bottom() + 25 <= 300);
        QQuickItem *focused = list.find(u"Last played"_s);
        focused->forceActiveFocus(Qt::TabFocusReason);
        list.showInstead({.title = u"Another"_s});
        QCOMPARE(list.place(u"Information"_s).top(), top);
        QVERIFY(!focused->hasActiveFocus());
        list.press(Qt::Key_PageDown); // the page has the focus now
        QTRY_VERIFY(list.place(u"Information"_s).top() < top);
    }

    void valuesOfTheShownSongFollowInPlace()
    {
        MediaItem song = shortSong;
        ListWindow list(song, {360, 300}, {.reducesMotion = true}); // which scrolls at once
        list.information.toggleShowMoreInformation();
        const QString lyrics = u"Lyrics, Show Lyrics"_s;
        list.press(Qt::Key_End);
        QTRY_VERIFY(list.place(lyrics).bottom() + 25 <= 300);
        QQuickItem *comments = list.find(u"Comments"_s);
        comments->forceActiveFocus(Qt::TabFocusReason);
        const QRectF place = list.place(lyrics);

        song.title = u"Golden Hour"_s;
        song.comments = u"Live"_s;
        song.playCount = 1;
        list.information.setMediaItem(song);
        QStringList expected = collapsedNames + moreNames;
        expected[1] = u"Show Less"_s;
        expected[2] = u"Title, Golden Hour"_s;
        expected[10] = u"Play count, 1"_s;
        expected[21] = u"Comments, Live"_s;
        QCOMPARE(list.names(), expected);
        QCOMPARE(list.place(lyrics), place);
        QCOMPARE(list.window.activeFocusItem(), comments);
        list.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Live"_s);
    }

    void theArtworkStandsAboveTheListInNarrowWindows()
    {
        ListWindow list(shortSong, {360, 720});
        const qreal without = list.place(u"Information"_s).top();
        QQmlComponent block(list.window.engine());
        block.setData("import QtQuick\nItem { implicitHeight: 100; Accessible.role: Accessible.Graphic; "
                      "Accessible.name: 'Artwork' }",
                      {});
        list.window.rootObject()->setProperty("artworkBlock", QVariant::fromValue(&block));
        QTRY_COMPARE(list.place(u"Artwork"_s), QRectF(18, 15, 324, 100));
        QCOMPARE(list.place(u"Information"_s).top(), without + 15 + 100 + 15 + 1);
        list.window.resize(1024, 768);
        QTRY_COMPARE(list.place(u"Information"_s).top(), without);
        QVERIFY(!list.find(u"Artwork"_s));
        list.window.rootObject()->setProperty("artworkBlock", QVariant::fromValue<QQmlComponent *>(nullptr));
    }
};

QTEST_MAIN(tst_InformationView)
#include "tst_InformationView.moc"
