// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkImageProvider.h"
#include "artwork/ArtworkPicture.h"
#include "artwork/ArtworkSidebarView.h"
#include "support/ArtworkDoubles.h"
#include "support/Covers.h"
#include "support/Test.h"
#include "support/ViewWindow.h"
#include "ui/Engine.h"

#include <QClipboard>
#include <QDrag>
#include <QMimeData>
#include <QQmlEngine>
#include <QSemaphore>
#include <QTimer>

namespace {

MediaItem song(const QString &title, std::shared_ptr<MemoryArtwork> artwork = {})
{
    return {.title = title,
            .artist = u"The Quiet Machines"_s,
            .persistentID = {1},
            .artwork = std::move(artwork)};
}

struct ShownSidebar : ArtworkDoubles
{
    ArtworkSidebarView sidebar;
};

/// A real sidebar in a real window, with everything around it in memory.
struct SidebarWindow : ShownSidebar, ViewWindow
{
    explicit SidebarWindow(std::optional<MediaItem> shown, bool isNowPlaying = false, QSize size = {320, 600})
        : ShownSidebar{.sidebar{std::move(shown), isNowPlaying, false, artwork}}
        , ViewWindow(size)
    {
        player.beginGeneratingPlaybackNotifications();
        window.engine()->addImageProvider(artworkProviderName(), new ArtworkImageProvider(loader));
        show("Artwork/ArtworkSidebarView.qml", "view", QVariant::fromValue(&sidebar));
    }
    [[nodiscard]] QQuickItem *tile()
    {
        return emptyTile() ? nullptr : find(u"Album artwork"_s, QAccessible::Graphic);
    }
    [[nodiscard]] QQuickItem *emptyTile() { return find(u"Album artwork, empty"_s, QAccessible::Graphic); }
};

const QString lines = u"Lines, The Quiet Machines"_s;

} // namespace

class tst_ArtworkView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPickedSongHasItsCoverItsTextsAndAButton()
    {
        SidebarWindow at(song(u"Lines"_s, cover(Qt::red)));
        QTRY_VERIFY(at.tile());
        QCOMPARE(at.tile()->size(), QSizeF(240, 240));
        QCOMPARE(at.tile()->mapToScene({}).x(), 40.0);
        const QRectF texts = at.place(lines, QAccessible::StaticText);
        QVERIFY(texts.top() > at.tile()->mapToScene({0, 240}).y() + 24);
        QCOMPARE(texts.left(), 40.0);
        QCOMPARE(at.place(u"Play"_s, QAccessible::Button).right(), 280.0);
        QVERIFY(!at.find(u"NOW PLAYING"_s, QAccessible::Heading));
        QVERIFY(!at.find(u"Open Music app"_s, QAccessible::Link));

        QQuickItem *button = at.find(u"Play"_s, QAccessible::Button);
        button->forceActiveFocus(Qt::TabFocusReason);
        at.press(Qt::Key_Space);
        QVERIFY(at.find(u"Pause"_s, QAccessible::Button));
        QAccessible::queryAccessibleInterface(button)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QVERIFY(at.find(u"Play"_s, QAccessible::Button));
        at.window.resize(70, 400);
        QTRY_VERIFY(at.place(u"Album artwork"_s).isEmpty());
    }

    void aFollowedSongHasAHeadingAndTheWayToTheMusicApp()
    {
        SidebarWindow at(song(u"Lines"_s), true);
        const QRectF heading = at.place(u"NOW PLAYING"_s, QAccessible::Heading);
        const QRectF link = at.place(u"Open Music app"_s, QAccessible::Link);
        const QRectF texts = at.place(lines, QAccessible::StaticText);
        QVERIFY(!heading.isEmpty() && !link.isEmpty());
        QVERIFY(heading.bottom() < texts.top());
        QVERIFY(link.right() <= texts.left() - 8);
        QVERIFY(!at.find(u"Play"_s, QAccessible::Button));
        QTest::mouseClick(&at.window, Qt::LeftButton, {}, link.center().toPoint());
        QCOMPARE(at.addresses.opened, std::vector{QUrl(u"music://"_s)});
    }

    void theSameItemShowsHowTheNextSongPlays()
    {
        SidebarWindow at(song(u"Lines"_s));
        at.sidebar.artwork()->togglePlayback();
        QQuickItem *button = at.find(u"Pause"_s, QAccessible::Button);
        button->forceActiveFocus(Qt::TabFocusReason);
        const auto show = [&at](const MediaItem &item, bool isNowPlaying) {
            auto *other = new ArtworkSidebarView(item, isNowPlaying, true, at.artwork, &at.window);
            at.window.rootObject()->setProperty("view", QVariant::fromValue(other));
        };
        const MediaItem other{.title = u"Other"_s, .persistentID = {2}};
        show(other, false);
        QVERIFY(at.find(u"Play"_s, QAccessible::Button));
        show(song(u"Lines"_s), false); // which has played all the while
        QVERIFY(at.find(u"Pause"_s, QAccessible::Button));
        QVERIFY(button->hasActiveFocus());
        show(other, true);
        QVERIFY(!button->hasActiveFocus()); // it is not there any more
        at.find(u"Open Music app"_s, QAccessible::Link)->forceActiveFocus(Qt::TabFocusReason);
        show(song(u"Lines"_s), false);
        at.press(Qt::Key_Space);
        QVERIFY(at.addresses.opened.empty());
    }

    void withoutASongThereIsOnlyTheEmptyTile()
    {
        SidebarWindow at(std::nullopt);
        QVERIFY(at.emptyTile());
        QVERIFY(!at.find(u"Play"_s, QAccessible::Button));
        QCOMPARE(at.emptyTile()->mapToScene({0, 0}).y(), 180.0); // in the column's middle
    }

    void aLowColumnStillShowsTheTextsAndTheButton()
    {
        for (const bool isExplicit : {false, true}) {
            MediaItem item = song(u"Paper satellites over the town "_s.repeated(20));
            item.isExplicitItem = isExplicit;
            SidebarWindow at(item, false, {414, 300});
            const qreal line = themeOf(*at.window.engine()).headline().lineHeight;
            QQuickItem *button = at.find(u"Play"_s, QAccessible::Button);
            QQuickItem *texts =
                button->parentItem()->findChild<QQuickItem *>(); // heading, link, title, artist
            QVERIFY(texts->height() > 6 * line && texts->height() < 8 * line);
            const QRectF place = at.place(button);
            QVERIFY(place.top() > 0 && place.bottom() < 300);
            QVERIFY(texts->mapToScene({0, texts->height()}).y() > 300); // the artist
            at.window.rootObject()->setProperty("contentY", 0);
            QVERIFY(at.place(button).bottom() > 300);
            button->forceActiveFocus(Qt::TabFocusReason);
            QCOMPARE(at.place(button).bottom(), 300.0 - 12);
        }
    }

    void aBrokenCoverIsAnEmptyTileWithoutCommands()
    {
        SidebarWindow at(song(u"Lines"_s, std::make_shared<MemoryArtwork>("\xff\xd8\xff broken")));
        QTRY_COMPARE(at.window.rootObject()->findChild<ArtworkPicture *>()->isEmpty(), true);
        QVERIFY(at.emptyTile());
        QGuiApplication::clipboard()->setText(u"before"_s);
        at.emptyTile()->forceActiveFocus(Qt::TabFocusReason);
        QTest::keySequence(&at.window, QKeySequence::Copy);
        QVERIFY(at.loader.pool().waitForDone());
        QCoreApplication::processEvents();
        QCOMPARE(QGuiApplication::clipboard()->text(), u"before"_s);
        QTest::mouseClick(&at.window, Qt::RightButton, {}, {160, 250});
        QVERIFY(!at.find(u"Copy"_s, QAccessible::MenuItem));
    }

    void theCoverIsCopiedByKeyAndByMenu()
    {
        SidebarWindow at(song(u"Lines"_s, cover(Qt::red)));
        QTRY_VERIFY(at.tile());
        at.tile()->forceActiveFocus(Qt::TabFocusReason);
        for (const bool byMenu : {false, true}) {
            QGuiApplication::clipboard()->setText(u"before"_s);
            if (byMenu) {
                at.press(Qt::Key_Menu);
                QTRY_VERIFY(at.window.activeFocusItem() != at.tile());
                at.press({Qt::Key_Down, Qt::Key_Return});
            } else {
                QTest::keySequence(&at.window, QKeySequence::Copy);
            }
            QTRY_VERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat(u"image/png"_s));
        }
    }

    void aHeldFingerOpensTheMenuOrTakesTheCoverAlong()
    {
        for (const auto &[isHeld, moves] : {std::pair(true, false), std::pair(true, true),
                                            std::pair(false, true), std::pair(false, false)}) {
            const QString outcome = !isHeld ? QString() : moves ? u"drag"_s : u"menu"_s;
            SidebarWindow at(song(u"Lines"_s, cover(Qt::red)));
            QTRY_VERIFY(at.tile());
            const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
            const auto touch = [&] { return QTest::touchEvent(&at.window, screen.get()); };
            const QPoint place = at.tile()->mapToScene({120, 100}).toPoint();
            const QPoint away = place + QPoint(0, 60);
            const auto menu = [&at] {
                const QAccessibleInterface *focused =
                    QAccessible::queryAccessibleInterface(at.window.activeFocusItem());
                return focused && focused->role() == QAccessible::PopupMenu;
            };
            QString seen;
            connect(at.sidebar.artwork(), &ArtworkView::isDraggingChanged, this, [&] {
                if (!at.sidebar.artwork()->isDragging())
                    return;
                QTimer::singleShot(0, this, [&] { touch().release(0, away); });
                const auto *drag = QCoreApplication::instance()->findChild<QDrag *>();
                QCOMPARE(drag->hotSpot(), at.tile()->mapFromScene(place).toPoint());
                QCOMPARE(drag->mimeData()->urls().value(0).fileName(), u"The Quiet Machines.png"_s);
                const QImage preview = drag->pixmap().toImage();
                QCOMPARE(preview.size(), QSize(240, 240));
                QCOMPARE(preview.pixelColor(120, 120), QColor(Qt::red));
                QCOMPARE(qAlpha(preview.pixel(1, 1)), 0); // round corners
                seen += u"drag"_s;
            });
            touch().press(0, place);
            if (isHeld)
                QTRY_VERIFY(menu());
            if (moves)
                touch().move(0, away);
            if (isHeld && moves) // the finger's end is the drag's
                QTRY_VERIFY(!seen.isEmpty() && !at.sidebar.artwork()->isDragging());
            else
                touch().release(0, moves ? away : place);
            QCOMPARE(menu() ? seen + u"menu"_s : seen, outcome);
        }
    }

    void theLastOfManySongsIsTheOneShown()
    {
        SidebarWindow at(song(u"Lines"_s, cover(Qt::red)));
        auto *picture = at.window.rootObject()->findChild<ArtworkPicture *>();
        QTRY_VERIFY(picture->hasPicture());

        QSemaphore goOn;
        const auto slow = cover(Qt::green);
        slow->beforeRead = [&goOn] { goOn.acquire(); };
        const MediaItem slowSong{.artwork = slow};
        const auto last = cover(Qt::blue);
        const MediaItem lastSong{.artwork = last};
        picture->setSource(at.loader.address(slowSong));
        QVERIFY(!picture->hasPicture()); // the old one is gone at once
        QTRY_COMPARE(slow->reads.load(), 1);
        picture->setSource(at.loader.address(lastSong));
        QTRY_VERIFY(picture->hasPicture());
        goOn.release();
        QVERIFY(at.loader.pool().waitForDone());
        QCoreApplication::processEvents();
        const auto shown = [&at] { return at.window.grabWindow().pixelColor(160, 260); };
        QTRY_VERIFY(shown().blue() > 250 && shown().red() < 5 && shown().green() < 5);
        QCOMPARE(last->reads.load(), 1);
        at.window.resize(360, 600); // a larger tile has a sharper picture
        QTRY_COMPARE(last->reads.load(), 2);
    }
};

QTEST_MAIN(tst_ArtworkView)
#include "tst_ArtworkView.moc"
