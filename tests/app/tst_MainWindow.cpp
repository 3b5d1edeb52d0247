// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowControllers.h"
#include "app/WindowScene.h"
#include "artwork/ArtworkImageProvider.h"
#include "artwork/ArtworkMimeData.h"
#include "detail/LinkDropTarget.h"
#include "support/SyntheticLibrary.h"
#include "ui/Engine.h"

#include <QAccessible>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace trackwise;

namespace {

const QString songLink = u"https://music.apple.com/album/1?i=100"_s;

/// A real window over doubles of the device.
struct Window : WindowDevice
{
    Window()
    {
        library.add(7, "Seven", "Band", "Album", "100");
        services.makePicker = [this] { return std::make_shared<MediaPicker>(songs, songs, scan); };
        services.connectedScenes = [] { return 1; };
        prepareEngine(engine);
        engine.addImageProvider(u"artwork"_s, new ArtworkImageProvider(loader));
        scene = std::make_unique<WindowScene>(engine, services, containerServices);
        scene->show();
        (void)QTest::qWaitForWindowActive(&window());
    }
    [[nodiscard]] QQuickWindow &window() const { return scene->window(); }
    [[nodiscard]] const Alert *alert() const { return scene->presentation().alert(); }
    [[nodiscard]] QString shownTitle() const
    {
        return scene->detail().visibleMediaItem() ? *scene->detail().visibleMediaItem()->title : QString();
    }
    template <typename Item>
    [[nodiscard]] Item *find() const
    {
        return findBelow<Item>(window().contentItem());
    }
    template <typename Item>
    [[nodiscard]] static Item *findBelow(QQuickItem *item)
    {
        if (auto *found = qobject_cast<Item *>(item))
            return found;
        for (QQuickItem *child : item->childItems()) {
            if (auto *found = findBelow<Item>(child))
                return found;
        }
        return nullptr;
    }
    /// The first item whose content is higher than itself.
    [[nodiscard]] static QQuickItem *scrolling(QQuickItem *item)
    {
        if (item->inherits("QQuickFlickable") && item->property("contentHeight").toReal() > item->height())
            return item;
        for (QQuickItem *child : item->childItems()) {
            if (QQuickItem *found = scrolling(child))
                return found;
        }
        return nullptr;
    }
    /// Sends a drag event as the window system does; gives back the action, or none where it was refused.
    template <typename Event>
    Qt::DropAction drag(const QMimeData &data)
    {
        const QPointF middle(window().width() / 2.0, window().height() / 2.0);
        return send(event<Event>(middle, data));
    }
    template <typename Event>
    static Event event(const QPointF &place, const QMimeData &data)
    {
        constexpr auto offered = Qt::MoveAction | Qt::CopyAction | Qt::LinkAction;
        if constexpr (std::is_same_v<Event, QDropEvent>)
            return Event(place, offered, &data, Qt::LeftButton, Qt::NoModifier);
        else
            return Event(place.toPoint(), offered, &data, Qt::LeftButton, Qt::NoModifier);
    }
    Qt::DropAction send(QDropEvent &&event)
    {
        event.ignore();
        QCoreApplication::sendEvent(&window(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    void drop(const QMimeData &data)
    {
        drag<QDragEnterEvent>(data);
        drag<QDropEvent>(data);
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
        scene->detail().presentAlert(QString::fromUtf8(title), u"What to do about it."_s, includesOpenMusic,
                                     false);
    }
    [[nodiscard]] bool waitForAlert(const char *title) const
    {
        return QTest::qWaitFor([&] {
            return alert() && alert()->title() == QString::fromUtf8(title) &&
                   focused() == alert()->actionTitles().value(alert()->preferredAction());
        });
    }

    SyntheticLibrary songs{100};
    ScriptedScan scan;
    QQmlEngine engine;
    std::unique_ptr<WindowScene> scene;
};

std::unique_ptr<QMimeData> dragged(const QString &format, const QByteArray &bytes)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(format, bytes);
    return data;
}

} // namespace

class tst_MainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QAccessible::setActive(true); }

    void takesDroppedLinks_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("taken");
        const auto row = [](const char *name, const char *format, const QByteArray &bytes, bool taken) {
            QTest::newRow(name) << QString::fromUtf8(format) << bytes << taken;
        };
        row("list of addresses", "text/uri-list", songLink.toUtf8() + "\r\n", true);
        row("text without a link", "text/plain", "Seven", false);
        row("picture", "image/png", "\x89PNG", false);
    }
    void takesDroppedLinks()
    {
        QFETCH(QString, format);
        QFETCH(QByteArray, bytes);
        QFETCH(bool, taken);
        Window w;
        const auto *target = w.find<LinkDropTarget>();
        const auto data = dragged(format, bytes);
        const Qt::DropAction action = taken ? Qt::CopyAction : Qt::IgnoreAction;
        QCOMPARE(w.drag<QDragEnterEvent>(*data), action);
        QCOMPARE(target->isTargeted(), taken);
        QCOMPARE(w.drag<QDragMoveEvent>(*data), action);
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(&w.window(), &leave);
        QVERIFY(!target->isTargeted());
        QCOMPARE(w.drag<QDragEnterEvent>(*data), action);
        QCOMPARE(w.drag<QDropEvent>(*data), action);
        QVERIFY(!target->isTargeted());
        if (taken)
            QTRY_COMPARE(w.shownTitle(), u"Seven"_s);
        QVERIFY(!w.alert());
    }

    void takesNoCoverOfOursForALink()
    {
        Window w;
        const QUrl file(u"file:///cache/Band%20-%20Album.png"_s);
        ArtworkMimeData cover({.file = file, .png = std::async([] { return QByteArray("png"); }).share()});
        QCOMPARE(cover.urls(), QList<QUrl>{file}); // which a file manager takes
        QCOMPARE(w.drag<QDragEnterEvent>(cover), Qt::IgnoreAction);
        QVERIFY(!w.find<LinkDropTarget>()->isTargeted());
        auto copied = std::make_unique<QMimeData>();
        for (const QString &format : cover.formats())
            copied->setData(format, cover.data(format));
        QGuiApplication::clipboard()->setMimeData(copied.release());
        QTest::keySequence(&w.window(), QKeySequence::Paste);
        QTest::keySequence(&w.window(), QKeySequence::Open); // comes after what pasting leads to
        QTRY_VERIFY(w.scene->presentation().isSheetVisible());
        QVERIFY(!w.alert());
    }

    void everyDropStartsAChainOfItsOwn()
    {
        Window w;
        for (const char *id : {"201", "202", "201"}) {
            QMimeData data;
            data.setUrls({QUrl(u"https://music.apple.com/?i="_s + QString::fromUtf8(id))});
            w.drop(data);
        }
        QTRY_COMPARE(w.http.requests.size(), std::size_t(3));
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

    void keysOpenAndCloseThePicker()
    {
        Window w;
        const Presentation &presentation = w.scene->presentation();
        QTest::keySequence(&w.window(), QKeySequence::Open);
        QTRY_VERIFY(presentation.isSheetVisible());
        QTRY_COMPARE(w.focused(), u"Search Songs"_s);
        QTest::keyClick(&w.window(), Qt::Key_Escape);
        QTRY_VERIFY(!presentation.isPresenting());
        QCOMPARE(w.shownTitle(), QString());
    }

    void opensWindowsFromEveryScreen()
    {
        Window w;
        const MediaItem song = w.library.list.front();
        Presentation &presentation = w.scene->presentation();
        int wanted = 0;
        connect(&w.scene->detail(), &DetailViewController::newWindowWanted, this, [&wanted] { ++wanted; });
        const auto opens = [&] {
            const int before = wanted;
            QTest::keySequence(&w.window(), QKeySequence::New);
            return wanted == before + 1;
        };
        QVERIFY(opens());
        w.scene->detail().displayMediaItem(song, false, false);
        for (int click = 0; click < 2; ++click)
            w.scene->detail().presentLyrics(song);
        QCOMPARE(presentation.pushedViews().size(), std::size_t(1));
        QVERIFY(opens());
        QTest::keySequence(&w.window(), QKeySequence(u"Alt+Left"_s));
        QTRY_VERIFY(presentation.pushedViews().empty());
        QTest::keySequence(&w.window(), QKeySequence::Open);
        QTRY_COMPARE(w.focused(), u"Search Songs"_s);
        QVERIFY(opens());
        w.presentAlert("First", true);
        QVERIFY(w.waitForAlert("First"));
        QVERIFY(opens());
    }

    void keysAnswerAlerts_data()
    {
        QTest::addColumn<bool>("offersMusic");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<bool>("opensMusic");
        QTest::newRow("OK by Return") << false << Qt::Key_Return << false;
        QTest::newRow("OK by Escape") << false << Qt::Key_Escape << false;
        QTest::newRow("preferred by Return") << true << Qt::Key_Return << true;
        QTest::newRow("preferred by Enter") << true << Qt::Key_Enter << true;
        QTest::newRow("cancelled by Escape") << true << Qt::Key_Escape << false;
    }
    void keysAnswerAlerts()
    {
        QFETCH(bool, offersMusic);
        QFETCH(Qt::Key, key);
        QFETCH(bool, opensMusic);
        Window w;
        w.presentAlert("First", offersMusic);
        w.presentAlert("Second", false); // waits
        QVERIFY(w.waitForAlert("First"));
        QTest::keyClick(&w.window(), key);
        QVERIFY(w.waitForAlert("Second"));
        QCOMPARE(w.addresses.opened.size(), opensMusic ? 1U : 0U);
    }

    void keepsTheKeyboardInAnAlert()
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
    }

    void readsAnAlertAloud()
    {
        Window w;
        w.presentAlert("First", false);
        QVERIFY(w.waitForAlert("First"));
        const QAccessibleInterface *dialog =
            QAccessible::queryAccessibleInterface(w.window().activeFocusItem());
        while (dialog && dialog->role() != QAccessible::Dialog && dialog->role() != QAccessible::AlertMessage)
            dialog = dialog->parent();
        QVERIFY(dialog);
        QVERIFY(dialog->state().modal);
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

    void laysOutTheColumns_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("column"); ///< where the details begin
        QTest::newRow("just wide enough") << QSize(700, 900) << 320;
        QTest::newRow("a point too narrow") << QSize(699, 400) << 0;
        QTest::newRow("square") << QSize(800, 800) << 320;
        QTest::newRow("lying") << QSize(1024, 768) << 414;
    }
    void laysOutTheColumns()
    {
        QFETCH(QSize, size);
        QFETCH(int, column);
        Window w;
        w.window().resize(size);
        const auto *details = w.find<LinkDropTarget>();
        QTRY_COMPARE(qRound(details->mapToScene({}).x()), column);
        QTRY_COMPARE(qRound(details->width()), size.width() - column);
    }

    void keepsTheListsPlaceBehindAnotherScreen()
    {
        Window w;
        w.window().resize(360, 600);
        QTRY_COMPARE(w.find<LinkDropTarget>()->width(), 360);
        w.preferences.setShowMoreInformation(true);
        const MediaItem song = w.library.list.front();
        w.scene->detail().displayMediaItem(song, false, false);
        QQuickItem *list = nullptr;
        const auto property = [&list](const char *name) { return list->property(name).toReal(); };
        QTRY_VERIFY((list = Window::scrolling(w.window().contentItem())));
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
