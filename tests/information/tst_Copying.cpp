// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/CopyableLabel.h"
#include "information/ListWindow.h"
#include "support/Test.h"
#include "ui/Engine.h"

#include <QClipboard>
#include <QQmlEngine>
#include <QSignalSpy>

namespace {

const MediaItem ratedSong{.title = u"Golden Hour Lines"_s, .rating = 4};

QString clipboardText()
{
    return QGuiApplication::clipboard()->text();
}

} // namespace

class tst_Copying : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->setText(u"before"_s); }

    void aFocusedRowCopiesItsValueAndNotWhatIsSpoken()
    {
        ListWindow list(ratedSong, {1024, 1024});
        list.information.toggleShowMoreInformation();
        list.find(u"Rating"_s)->forceActiveFocus(Qt::TabFocusReason);
        list.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboardText(), u"★★★★☆"_s);
        QGuiApplication::clipboard()->clear();
        QAccessibleInterface *row = QAccessible::queryAccessibleInterface(list.find(u"Rating"_s));
        QCOMPARE(row->role(), QAccessible::StaticText);
        QVERIFY(row->state().focusable && row->state().focused && !row->state().offscreen);
        QCOMPARE(row->rect().topLeft() - list.window.position(), list.place(u"Rating"_s).topLeft().toPoint());
        QVERIFY(row->parent()->indexOfChild(row) >= 0);
        QCOMPARE(row->actionInterface()->actionNames(), QStringList{u"Copy"_s});
        row->actionInterface()->doAction(u"Copy"_s);
        QCOMPARE(clipboardText(), u"★★★★☆"_s);
    }

    void aRightClickOffersCopyAndReturnChoosesIt()
    {
        ListWindow list(ratedSong);
        const QPoint place = list.place(u"Title"_s).center().toPoint();
        QTest::mouseClick(&list.window, Qt::RightButton, {}, place);
        QTRY_VERIFY(list.find(u"Copy"_s));
        const QRectF choice = list.place(u"Copy"_s);
        QVERIFY(choice.top() >= place.y() && choice.top() < place.y() + 20);
        list.press({Qt::Key_Down, Qt::Key_Return});
        QCOMPARE(clipboardText(), u"Golden Hour Lines"_s);
        QTRY_VERIFY(!list.find(u"Copy"_s));

        list.showInstead({.title = u"Another"_s}); // whose menus copy its own texts
        list.click(Qt::RightButton, u"Title"_s);
        QTRY_VERIFY(list.find(u"Copy"_s));
        list.press({Qt::Key_Down, Qt::Key_Return});
        QCOMPARE(clipboardText(), u"Another"_s);
    }

    void theMenuKeysOpenTheSameMenuAndEscapeLeavesIt()
    {
        ListWindow list(ratedSong);
        QQuickItem *row = list.find(u"Title"_s);
        row->forceActiveFocus(Qt::TabFocusReason);
        list.press(Qt::Key_F10); // without Shift
        QVERIFY(!list.find(u"Copy"_s));
        for (const auto &[key, modifiers] :
             {std::pair(Qt::Key_Menu, Qt::NoModifier), std::pair(Qt::Key_F10, Qt::ShiftModifier)}) {
            list.press(key, modifiers);
            QTRY_VERIFY(list.find(u"Copy"_s));
            list.press(Qt::Key_Escape);
            QTRY_VERIFY(!list.find(u"Copy"_s));
            QCOMPARE(clipboardText(), u"before"_s);
            QTRY_COMPARE(list.window.activeFocusItem(), row);
            QVERIFY(row->property("hasKeyboardFocus").toBool()); // as before
        }
    }

    void holdingAFingerOffersCopyAboveIt()
    {
        ListWindow list(ratedSong);
        const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
        const QRectF row = list.place(u"Title"_s);
        const QPoint touch(qRound(row.right()) - 50, qRound(row.top()) + 20);
        QTest::touchEvent(&list.window, screen.get()).press(0, touch);
        QTRY_VERIFY(list.find(u"Copy"_s));
        QTest::touchEvent(&list.window, screen.get()).release(0, touch);
        const QRectF choice = list.place(u"Copy"_s);
        QCOMPARE(choice.center().x(), touch.x());
        QCOMPARE(choice.bottom(), row.top() + 9);
        QTest::touchEvent(&list.window, screen.get()).press(0, choice.center().toPoint());
        QTest::touchEvent(&list.window, screen.get()).release(0, choice.center().toPoint());
        QTRY_COMPARE(clipboardText(), u"Golden Hour Lines"_s);
        QTRY_VERIFY(!list.find(u"Copy"_s));
    }

    void theEditMenuPointsALittleAboveTheFinger()
    {
        const auto anchor = [](qreal y) { return CopyableLabel::editMenuAnchor({30, y}); };
        QCOMPARE(anchor(5), QPointF(30, 9)); // at the first line
        QCOMPARE(anchor(40), QPointF(30, 9));
        QCOMPARE(anchor(41), QPointF(30, 31));
        QCOMPARE(anchor(400), QPointF(30, 390));
    }

    void theContextMenuKeepsTheTextThatTheLabelWasMadeWith()
    {
        QQmlEngine engine;
        prepareEngine(engine);
        QQmlComponent component(&engine);
        component.setData("import Trackwise.Information\nCopyableLabelView { width: 100; text: 'made' }", {});
        const std::unique_ptr<QObject> object(component.create());
        auto *label = qobject_cast<CopyableLabel *>(object.get());
        label->setText(u"updated"_s);
        label->copyCreationText();
        QCOMPARE(clipboardText(), u"made"_s);
        label->copy();
        QCOMPARE(clipboardText(), u"updated"_s);
        label->setSelection(u"date"_s);
        label->copy();
        QCOMPARE(clipboardText(), u"date"_s);
    }
};

QTEST_MAIN(tst_Copying)
#include "tst_Copying.moc"
