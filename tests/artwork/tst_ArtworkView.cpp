// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkFiles.h"
#include "artwork/ArtworkImageProvider.h"
#include "artwork/ArtworkPicture.h"
#include "artwork/ArtworkSidebarView.h"
#include "support/AddressOpenerDouble.h"
#include "support/Covers.h"
#include "support/MusicPlayerDouble.h"
#include "support/ViewWindow.h"
#include "ui/Engine.h"

#include <QClipboard>
#include <QDrag>
#include <QMimeData>
#include <QQmlEngine>
#include <QSemaphore>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace trackwise;

namespace {

MediaItem song(const QString &title, std::shared_ptr<MemoryArtwork> artwork = {})
{
    MediaItem item;
    item.persistentID = {1};
    item.title = title;
    item.artist = u"The Quiet Machines"_s;
    item.artwork = std::move(artwork);
    return item;
}

struct ShownSidebar
{
    MusicPlayerDouble player;
    AddressOpenerDouble opener;
    ArtworkLoader loader{[](PersistentID) { return ArtworkPtr(); }};
    QTemporaryDir folder;
    ArtworkFiles files{folder.path()};
    ArtworkSidebarView sidebar;
};

/// A real sidebar in a real window, with everything around it in memory.
struct SidebarWindow : ShownSidebar, ViewWindow
{
    explicit SidebarWindow(std::optional<MediaItem> shown, bool isNowPlaying = false, QSize size = {320, 600})
        : ShownSidebar{.sidebar{std::move(shown),
                                isNowPlaying,
                                false,
                                {player, opener, loader, files, [] { return Instant{}; }}}}
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

std::shared_ptr<MemoryArtwork> cover(const QColor &color)
{
    return std::make_shared<MemoryArtwork>(coverBytes({400, 400}, color, "png"));
}

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
    }

    void theButtonPlaysAndIsRenamed()
    {
        SidebarWindow at(song(u"Lines"_s));
        QQuickItem *button = at.find(u"Play"_s, QAccessible::Button);
        QVERIFY(button);
        button->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(&at.window, Qt::Key_Space);
        QVERIFY(at.find(u"Pause"_s, QAccessible::Button));
        QAccessible::queryAccessibleInterface(button)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QVERIFY(at.find(u"Play"_s, QAccessible::Button));
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
        QCOMPARE(at.opener.opened.size(), size_t{1});
    }

    void theSameItemShowsHowTheNextSongPlays()
    {
        SidebarWindow at(song(u"Lines"_s));
        at.sidebar.artwork()->togglePlayback();
        QQuickItem *button = at.find(u"Pause"_s, QAccessible::Button);
        button->forceActiveFocus(Qt::TabFocusReason);
        const ArtworkServices services{at.player, at.opener, at.loader, at.files, [] { return Instant{}; }};
        const auto show = [&at](ArtworkSidebarView &sidebar) {
            at.window.rootObject()->setProperty("view", QVariant::fromValue(&sidebar));
        };
        MediaItem other = song(u"Other"_s);
        other.persistentID = {2};
        auto *silent = new ArtworkSidebarView(other, false, true, services, &at.window);
        show(*silent);
        QVERIFY(at.find(u"Play"_s, QAccessible::Button));
        // It has played all the while.
        auto *again = new ArtworkSidebarView(song(u"Lines"_s), false, true, services, &at.window);
        show(*again);
        QVERIFY(at.find(u"Pause"_s, QAccessible::Button));
        QVERIFY(button->hasActiveFocus());
        auto *followed = new ArtworkSidebarView(other, true, true, services, &at.window);
        show(*followed);
        QVERIFY(!button->hasActiveFocus()); // it is not there any more
        at.find(u"Open Music app"_s, QAccessible::Link)->forceActiveFocus(Qt::TabFocusReason);
        show(*again);
        QTest::keyClick(&at.window, Qt::Key_Space);
        QCOMPARE(at.opener.opened.size(), size_t{0});
        show(at.sidebar);
    }

    void withoutASongThereIsOnlyTheEmptyTile()
    {
        SidebarWindow at(std::nullopt);
        QVERIFY(at.emptyTile());
        QVERIFY(!at.find(u"Play"_s, QAccessible::Button));
        QCOMPARE(at.emptyTile()->mapToScene({0, 0}).y(), 180.0); // in the column's middle
    }

    void aNarrowColumnHidesTheTile()
    {
        SidebarWindow at(song(u"Lines"_s, cover(Qt::red)), false, {70, 400});
        QVERIFY(at.place(u"Album artwork"_s).isEmpty());
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
                at.press(Qt::Key_Down);
                at.press(Qt::Key_Return);
            } else {
                QTest::keySequence(&at.window, QKeySequence::Copy);
            }
            QTRY_VERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat(u"image/png"_s));
        }
    }

    void aHeldFingerOpensTheMenuOrTakesTheCoverAlong_data()
    {
        QTest::addColumn<bool>("isHeld");
        QTest::addColumn<bool>("moves");
        QTest::addColumn<QString>("outcome");
        QTest::newRow("held") << true << false << u"menu"_s;
        QTest::newRow("held and moved") << true << true << u"drag"_s;
        QTest::newRow("moved at once") << false << true << QString();
        QTest::newRow("touched") << false << false << QString();
    }
    void aHeldFingerOpensTheMenuOrTakesTheCoverAlong()
    {
        QFETCH(bool, isHeld);
        QFETCH(bool, moves);
        QFETCH(QString, outcome);
        SidebarWindow at(song(u"Lines"_s, cover(Qt::red)));
        QTRY_VERIFY(at.tile());
        const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
        const QPoint place = at.tile()->mapToScene({120, 100}).toPoint();
        const QPoint away = place + QPoint(0, 60);
        const auto menu = [&at] {
            QAccessibleInterface *focused =
                QAccessible::queryAccessibleInterface(at.window.activeFocusItem());
            return focused && focused->role() == QAccessible::PopupMenu;
        };
        QStringList seen;
        connect(at.sidebar.artwork(), &ArtworkView::isDraggingChanged, this, [&] {
            if (!at.sidebar.artwork()->isDragging())
                return;
            seen << u"drag"_s;
            const auto *drag = QCoreApplication::instance()->findChild<QDrag *>();
            QCOMPARE(drag->hotSpot(), at.tile()->mapFromScene(place).toPoint());
            QCOMPARE(drag->mimeData()->urls().value(0).fileName(), u"The Quiet Machines.png"_s);
            const QImage preview = drag->pixmap().toImage();
            QCOMPARE(preview.size(), QSize(240, 240));
            QCOMPARE(preview.pixelColor(120, 120), QColor(Qt::red));
            QCOMPARE(qAlpha(preview.pixel(1, 1)), 0); // round corners
            QTimer::singleShot(0, this,
                               [&] { QTest::touchEvent(&at.window, screen.get()).release(0, away); });
        });
        QTest::touchEvent(&at.window, screen.get()).press(0, place);
        if (isHeld)
            QTRY_VERIFY(menu());
        if (moves)
            QTest::touchEvent(&at.window, screen.get()).move(0, away);
        if (outcome == u"drag")
            QTRY_VERIFY(!seen.isEmpty() &&
                        !at.sidebar.artwork()->isDragging()); // the finger's end is the drag's
        else
            QTest::touchEvent(&at.window, screen.get()).release(0, moves ? away : place);
        if (menu())
            seen << u"menu"_s;
        QCOMPARE(seen.join(u','), outcome);
    }

    void theLastOfManySongsIsTheOneShown()
    {
        SidebarWindow at(song(u"Lines"_s, cover(Qt::red)));
        auto *picture = at.window.rootObject()->findChild<ArtworkPicture *>();
        QTRY_VERIFY(picture->hasPicture());

        QSemaphore goOn;
        const auto slow = cover(Qt::green);
        slow->beforeRead = [&goOn] { goOn.acquire(); };
        const MediaItem slowSong = song(u"Slow"_s, slow);
        const auto last = cover(Qt::blue);
        const MediaItem lastSong = song(u"Last"_s, last);
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
