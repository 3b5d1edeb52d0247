// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/RealWindow.h"
#include "artwork/ArtworkMimeData.h"
#include "detail/LinkDropTarget.h"
#include "support/Test.h"

#include <QAccessible>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QQuickItem>
#include <QSignalSpy>

#include <algorithm>
#include <memory>

namespace {

const QString songLink = u"https://music.apple.com/album/1?i=100"_s;

struct Window : RealWindow
{
    [[nodiscard]] const Alert *alert() const { return scene->presentation().alert(); }
    [[nodiscard]] QString shownTitle() const
    {
        return scene->detail().visibleMediaItem() ? *scene->detail().visibleMediaItem()->title : QString();
    }
    [[nodiscard]] LinkDropTarget *dropTarget() const { return window().findChild<LinkDropTarget *>(); }
    /// Sends a drag event as the window system does; gives back the action, or none where it was refused.
    template <typename Event>
    Qt::DropAction drag(const QMimeData &data)
    {
        constexpr auto offered = Qt::MoveAction | Qt::CopyAction | Qt::LinkAction;
        Event event(QRect({}, window().size()).center(), offered, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&window(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    /// The name of what has the keyboard, for a screen reader.
    [[nodiscard]] QString focused() const
    {
        QAccessibleInterface *item = QAccessible::queryAccessibleInterface(window().activeFocusItem());
        return item ? item->text(QAccessible::Name) : QString();
    }
    static void collectFocusable(QAccessibleInterface *element, QStringList &names)
    {
        if (element->state().focusable && !element->state().invisible)
            names << element->text(QAccessible::Name);
        for (int i = 0; i < element->childCount(); ++i)
            collectFocusable(element->child(i), names);
    }
    void presentAlert(const char *title, bool includesOpenMusic)
    {
        scene->detail().presentAlert({.title = QString::fromUtf8(title),
                                      .message = u"What to do about it."_s,
                                      .includesOpenMusic = includesOpenMusic});
    }
    [[nodiscard]] bool waitForAlert(const char *title) const
    {
        return QTest::qWaitFor([&] {
            return alert() && alert()->title() == QString::fromUtf8(title) &&
                   focused() == alert()->actionTitles().value(alert()->preferredAction());
        });
    }
};

} // namespace

class tst_MainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QAccessible::setActive(true); }

    void takesDroppedLinks()
    {
        const std::tuple<QString, QByteArray, bool> rows[]{
            {u"text/uri-list"_s, songLink.toUtf8() + "\r\n", true},
            {u"text/plain"_s, "Seven", false},
            {u"image/png"_s, "\x89PNG", false},
        };
        for (const auto &[format, bytes, taken] : rows) {
            Window w;
            const auto *target = w.dropTarget();
            QSignalSpy changes(target, &LinkDropTarget::isTargetedChanged);
            QMimeData data;
            data.setData(format, bytes);
            const Qt::DropAction action = taken ? Qt::CopyAction : Qt::IgnoreAction;
            QCOMPARE(w.drag<QDragEnterEvent>(data), action);
            QCOMPARE(target->isTargeted(), taken);
            QCOMPARE(w.drag<QDragMoveEvent>(data), action);
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(&w.window(), &leave);
            QVERIFY(!target->isTargeted());
            QCOMPARE(w.drag<QDragEnterEvent>(data), action);
            QCOMPARE(w.drag<QDropEvent>(data), action);
            QVERIFY(!target->isTargeted());
            QCOMPARE(changes.size(), taken ? 4 : 0);
            if (taken)
                QTRY_COMPARE(w.shownTitle(), u"Seven"_s);
            QVERIFY(!w.alert());
        }
    }

    void takesNoCoverOfOursForALink()
    {
        Window w;
        const QUrl file(u"file:///cache/Band%20-%20Album.png"_s);
        ArtworkMimeData cover({.file = file, .png = std::async([] { return QByteArray("png"); }).share()});
        QCOMPARE(cover.urls(), QList<QUrl>{file}); // which a file manager takes
        QCOMPARE(w.drag<QDragEnterEvent>(cover), Qt::IgnoreAction);
        QVERIFY(!w.dropTarget()->isTargeted());
        auto copied = std::make_unique<QMimeData>();
        for (const QString &format : cover.formats())
            copied->setData(format, cover.data(format));
        QGuiApplication::clipboard()->setMimeData(copied.release());
        QTest::keySequence(&w.window(), QKeySequence::Paste);
        QTest::keySequence(&w.window(), QKeySequence::Open); // comes after what pasting leads to
        QTRY_VERIFY(w.scene->presentation().isSheetVisible());
        QVERIFY(!w.alert());
    }

    void pastesALink()
    {
        Window w;
        QGuiApplication::clipboard()->setText(songLink);
        QTest::keySequence(&w.window(), QKeySequence::Paste);
        QTRY_COMPARE(w.shownTitle(), u"Seven"_s);
        QGuiApplication::clipboard()->setText(u"Seven"_s);
        QTest::keySequence(&w.window(), QKeySequence::Paste);
        QTRY_VERIFY(w.alert());
        QCOMPARE(w.alert()->title(), u"Song Not Found"_s);
    }

    void opensWindowsFromEveryScreen()
    {
        Window w;
        const MediaItem song = w.library.list.front();
        Presentation &presentation = w.scene->presentation();
        QSignalSpy wanted(&w.scene->menus(), &WindowMenus::newWindowKeyCommanded);
        const auto open = [&] {
            QTest::keySequence(&w.window(), QKeySequence::New);
            return wanted.size();
        };
        QCOMPARE(open(), 1);
        w.scene->detail().displayMediaItem(song, {.showsNotInLibraryAlert = false});
        for (int click = 0; click < 2; ++click)
            w.scene->detail().presentLyrics(song);
        QCOMPARE(presentation.pushedViews().size(), 1u);
        QCOMPARE(open(), 2);
        w.scene->menus().setPlace(MenuBarPlace::OnDemand);
        QTest::keyClick(&w.window(), Qt::Key_F10);
        QTest::keyClick(&w.window(), Qt::Key_Escape); // leaves the menu bar only
        QCOMPARE(presentation.pushedViews().size(), 1u);
        QTest::keySequence(&w.window(), QKeySequence(u"Alt+Left"_s));
        QTRY_VERIFY(presentation.pushedViews().empty());
        QTest::keySequence(&w.window(), QKeySequence::Open);
        QTRY_COMPARE(w.focused(), u"Search Songs"_s);
        QCOMPARE(open(), 3);
        QTest::keyClick(&w.window(), Qt::Key_Escape);
        QTRY_VERIFY(!presentation.isPresenting());
        w.presentAlert("First", true);
        QVERIFY(w.waitForAlert("First"));
        QCOMPARE(open(), 4);
    }

    void keysAnswerAlerts()
    {
        const std::tuple<bool, Qt::Key, bool> rows[]{
            // Whether music is offered, the key, whether that opens it.
            {false, Qt::Key_Return, false}, {false, Qt::Key_Escape, false}, {true, Qt::Key_Return, true},
            {true, Qt::Key_Enter, true},    {true, Qt::Key_Escape, false},
        };
        for (const auto &[offersMusic, key, opensMusic] : rows) {
            Window w;
            w.presentAlert("First", offersMusic);
            w.presentAlert("Second", false); // waits
            QVERIFY(w.waitForAlert("First"));
            QTest::keyClick(&w.window(), key);
            QVERIFY(w.waitForAlert("Second"));
            QCOMPARE(w.addresses.opened, std::vector<QUrl>(opensMusic, QUrl(u"music://"_s)));
        }
    }

    void keepsTheKeyboardInAnAlertAndReadsItAloud()
    {
        Window w;
        w.presentAlert("First", true);
        QVERIFY(w.waitForAlert("First"));
        QStringList visited;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(&w.window(), Qt::Key_Tab);
            visited << w.focused();
        }
        const QStringList both{u"Cancel"_s, u"Open Music"_s};
        QCOMPARE(visited, both + both);
        QTest::keySequence(&w.window(), QKeySequence::Open); // commands wait until it is answered
        QVERIFY(!w.scene->presentation().sheet());
        const auto *dialog = QAccessible::queryAccessibleInterface(w.window().activeFocusItem());
        while (dialog && dialog->role() != QAccessible::Dialog && dialog->role() != QAccessible::AlertMessage)
            dialog = dialog->parent();
        QVERIFY(dialog && dialog->state().modal);
        QCOMPARE(dialog->text(QAccessible::Name), u"First"_s);
        QCOMPARE(dialog->text(QAccessible::Description), u"What to do about it."_s);
    }

    void onlyTheLayerInFrontIsReadAloud()
    {
        Window w;
        w.scene->detail().selectSongFromLibrary();
        QTRY_COMPARE(w.focused(), u"Search Songs"_s);
        w.presentAlert("First", false);
        QVERIFY(w.waitForAlert("First"));
        const auto spoken = [&w] {
            QStringList names;
            Window::collectFocusable(QAccessible::queryAccessibleInterface(&w.window()), names);
            return names;
        };
        QCOMPARE(spoken(), QStringList{u"OK"_s});
        QTest::keyClick(&w.window(), Qt::Key_Return);
        QTRY_VERIFY(spoken().contains(u"Search Songs"_s));
        QVERIFY(!spoken().contains(u"More"_s));
        w.scene->presentation().cancelSheet();
        QTRY_VERIFY(spoken().contains(u"More"_s));
        QVERIFY(!spoken().contains(QString())); // everything has a name
    }

    void showsItsMenuBarWhenItIsCalledFor()
    {
        struct Step
        {
            std::vector<Qt::Key> keys;
            bool isShown;
        };
        const auto walk = [](Window &w, const std::vector<Step> &steps) {
            const auto items = w.window().findChildren<QQuickItem *>();
            const auto *bar =
                *std::ranges::find_if(items, [](QQuickItem *i) { return i->inherits("QQuickMenuBar"); });
            const auto *before = w.window().activeFocusItem();
            for (const auto &[keys, isShown] : steps) {
                for (const Qt::Key key : keys)
                    QTest::keyClick(&w.window(), key);
                QTRY_COMPARE(bar->isVisible(), isShown);
                if (!isShown)
                    QTRY_COMPARE(w.window().activeFocusItem(), before);
            }
        };
        Window w;
        w.scene->menus().setPlace(MenuBarPlace::OnDemand);
        walk(w, {{{Qt::Key_Alt}, true},
                 {{Qt::Key_Alt}, false},
                 {{Qt::Key_F10, Qt::Key_Right}, true},
                 {{Qt::Key_F10}, false},
                 {{Qt::Key_F10, Qt::Key_Down}, true},
                 {{Qt::Key_Escape}, false},
                 {{Qt::Key_Alt}, true},
                 {{Qt::Key_Escape}, false}});
        QTest::keyPress(&w.window(), Qt::Key_Alt); // for something else
        QTest::keyClick(&w.window(), Qt::Key_F4, Qt::AltModifier);
        QTest::keyRelease(&w.window(), Qt::Key_Alt);
        walk(w, {{{}, false}, {{Qt::Key_F10}, true}});
        QTest::mouseClick(&w.window(), Qt::LeftButton, {}, {500, 500});
        walk(w, {{{}, false}, {{Qt::Key_F10, Qt::Key_Right, Qt::Key_Return}, true}});
        const auto objects = w.window().findChildren<QObject *>();
        const auto *file = *std::ranges::find_if(objects, [](const QObject *object) {
            return object->inherits("QQuickMenu") && object->property("title") == u"File"_s;
        });
        QTRY_VERIFY(file->property("opened").toBool() && file->property("currentIndex") == 0);
        QTest::keyClick(&w.window(), Qt::Key_Return);
        QTRY_COMPARE(w.focused(), u"Search Songs"_s);
        walk(w, {{{Qt::Key_F10, Qt::Key_Alt}, false}}); // keys are the sheet's
        for (const auto place : {std::optional<MenuBarPlace>(), std::optional(MenuBarPlace::OnDesktop)}) {
            Window other;
            other.scene->menus().setPlace(place);
            walk(other, {{{Qt::Key_F10, Qt::Key_Alt}, false}});
            QSignalSpy windows(&other.scene->menus(), &WindowMenus::newWindowKeyCommanded);
            for (int press = 1; press < 4; ++press) {
                QTest::keySequence(&other.window(), QKeySequence::New);
                QCOMPARE(windows.size(), press);
            }
        }
        Window always;
        always.scene->menus().setPlace(MenuBarPlace::InWindow);
        QSignalSpy wanted(&always.scene->menus(), &WindowMenus::newWindowKeyCommanded);
        walk(always, {{{}, true},
                      {{Qt::Key_Alt, Qt::Key_Down, Qt::Key_Return}, true},
                      {{Qt::Key_Alt, Qt::Key_Alt}, true}});
        QCOMPARE(wanted.size(), 1);
    }

    void theReadmeTellsAllKeys()
    {
        Window w;
        QFile readme(QStringLiteral(TRACKWISE_README));
        QVERIFY(readme.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(readme.readAll());
        for (const CommandMenu *menu : {w.scene->menus().applicationMenu(), w.scene->menus().fileMenu()}) {
            for (const MenuEntry &entry : menu->entries())
                QVERIFY2(entry.keys.isEmpty() ||
                             text.contains(u"\n| %1 |"_s.arg(entry.keys.front().toString())),
                         qPrintable(entry.title));
        }
    }

    void theAboutSheetHasItsOwnSizeOrFillsTheWindow()
    {
        Window w;
        w.scene->detail().presentAbout();
        QTRY_COMPARE(w.focused(), u"Close"_s);
        const QQuickItem *screen = w.window().activeFocusItem();
        while (screen && !screen->inherits("QQuickPopupItem"))
            screen = screen->parentItem();
        QVERIFY(screen);
        const auto frame = [screen] { return screen->mapRectToScene(screen->boundingRect()); };
        QTRY_COMPARE(frame(), QRectF(154.5, 146.5, 715, 475));
        w.window().resize(360, 720);
        QTRY_COMPARE(frame(), QRectF(0, 0, 360, 720));
        QTest::keyClick(&w.window(), Qt::Key_Escape);
        QTRY_VERIFY(!w.scene->presentation().isPresenting());
    }

    void laysOutTheColumns()
    {
        const std::pair<QSize, int> rows[]{
            {{700, 900}, 320}, {{699, 400}, 0}, {{800, 800}, 320}, {{1024, 768}, 414}, {{320, 900}, 0}};
        Window w;
        const auto *details = w.dropTarget();
        for (const auto &[size, column] : rows) {
            w.window().resize(size);
            QTRY_COMPARE(details->mapRectToScene(details->boundingRect()),
                         QRectF(column, 0, size.width() - column, size.height()));
        }
    }

    void keepsTheListsPlaceBehindAnotherScreen()
    {
        Window w;
        w.window().resize(360, 600);
        QTRY_COMPARE(w.dropTarget()->width(), 360);
        w.preferences.setShowMoreInformation(true);
        const MediaItem song = w.library.list.front();
        w.scene->detail().displayMediaItem(song, {.showsNotInLibraryAlert = false});
        QQuickItem *list = nullptr;
        const auto property = [&list](const char *name) { return list->property(name).toReal(); };
        for (QQuickItem *item : w.window().findChildren<QQuickItem *>()) {
            if (item->inherits("QQuickFlickable") &&
                item->property("contentHeight").toReal() > item->height())
                list = item;
        }
        QVERIFY(list);
        const qreal end = property("contentHeight") - list->height();
        list->setProperty("contentY", end);
        w.scene->detail().presentLyrics(song);
        QTRY_VERIFY(!list->isVisible());
        w.scene->presentation().pop();
        QTRY_VERIFY(list->isVisible());
        QCOMPARE(property("contentY"), end);
    }
};

QTEST_MAIN(tst_MainWindow)
#include "tst_MainWindow.moc"
