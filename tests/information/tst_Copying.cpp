// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/CopyableLabel.h"
#include "information/ListWindow.h"
#include "ui/Engine.h"

#include <QClipboard>
#include <QQmlEngine>
#include <QSignalSpy>

using namespace trackwise;

namespace {

MediaItem ratedSong()
{
    MediaItem song;
    song.title = QStringLiteral("Golden Hour Lines");
    song.rating = 4;
    return song;
}

QString clipboardText()
{
    return QGuiApplication::clipboard()->text();
}

} // namespace

class tst_Copying : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->setText(QStringLiteral("before")); }

    void aFocusedRowCopiesItsValueAndNotWhatIsSpoken()
    {
        ListWindow list(ratedSong(), {1024, 1024});
        list.information.toggleShowMoreInformation();
        list.find(QStringLiteral("Rating"))->forceActiveFocus(Qt::TabFocusReason);
        list.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboardText(), QStringLiteral("★★★★☆"));
        QGuiApplication::clipboard()->clear();
        QAccessibleInterface *row =
            QAccessible::queryAccessibleInterface(list.find(QStringLiteral("Rating")));
        QCOMPARE(row->role(), QAccessible::StaticText);
        QVERIFY(row->state().focusable && row->state().focused && !row->state().offscreen);
        QCOMPARE(row->rect().topLeft() - list.window.position(),
                 list.place(QStringLiteral("Rating")).topLeft().toPoint());
        QVERIFY(row->parent()->indexOfChild(row) >= 0);
        QCOMPARE(row->actionInterface()->actionNames(), QStringList{QStringLiteral("Copy")});
        row->actionInterface()->doAction(QStringLiteral("Copy"));
        QCOMPARE(clipboardText(), QStringLiteral("★★★★☆"));
    }

    void aRightClickOffersCopyAndReturnChoosesIt()
    {
        ListWindow list(ratedSong());
        const QPoint place = list.place(QStringLiteral("Title")).center().toPoint();
        QTest::mouseClick(&list.window, Qt::RightButton, {}, place);
        QTRY_VERIFY(list.find(QStringLiteral("Copy")));
        const QRectF choice = list.place(QStringLiteral("Copy"));
        QVERIFY(choice.top() >= place.y() && choice.top() < place.y() + 20);
        list.press(Qt::Key_Down);
        list.press(Qt::Key_Return);
        QCOMPARE(clipboardText(), QStringLiteral("Golden Hour Lines"));
        QTRY_VERIFY(!list.find(QStringLiteral("Copy")));
    }

    void theMenuKeyOpensTheSameMenuAndEscapeLeavesIt()
    {
        ListWindow list(ratedSong());
        QQuickItem *row = list.find(QStringLiteral("Title"));
        row->forceActiveFocus(Qt::TabFocusReason);
        list.press(Qt::Key_Menu);
        QTRY_VERIFY(list.find(QStringLiteral("Copy")));
        list.press(Qt::Key_Escape);
        QTRY_VERIFY(!list.find(QStringLiteral("Copy")));
        QCOMPARE(clipboardText(), QStringLiteral("before"));
        QTRY_COMPARE(list.window.activeFocusItem(), row);
    }

    void holdingAFingerOffersCopyAboveIt()
    {
        ListWindow list(ratedSong());
        const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
        const QRectF row = list.place(QStringLiteral("Title"));
        const QPoint touch(qRound(row.right()) - 50, qRound(row.top()) + 20);
        QTest::touchEvent(&list.window, screen.get()).press(0, touch);
        QTRY_VERIFY(list.find(QStringLiteral("Copy")));
        QTest::touchEvent(&list.window, screen.get()).release(0, touch);
        const QRectF choice = list.place(QStringLiteral("Copy"));
        QCOMPARE(choice.center().x(), touch.x());
        QCOMPARE(choice.bottom(), row.top() + 9);
        QTest::touchEvent(&list.window, screen.get()).press(0, choice.center().toPoint());
        QTest::touchEvent(&list.window, screen.get()).release(0, choice.center().toPoint());
        QTRY_COMPARE(clipboardText(), QStringLiteral("Golden Hour Lines"));
        QTRY_VERIFY(!list.find(QStringLiteral("Copy")));
    }

    void theEditMenuPointsALittleAboveTheFinger_data()
    {
        QTest::addColumn<QPointF>("touch");
        QTest::addColumn<QPointF>("anchor");
        QTest::newRow("first line") << QPointF(30, 5) << QPointF(30, 9);
        QTest::newRow("at the limit") << QPointF(30, 40) << QPointF(30, 9);
        QTest::newRow("below it") << QPointF(30, 41) << QPointF(30, 31);
        QTest::newRow("far down") << QPointF(0, 400) << QPointF(0, 390);
    }
    void theEditMenuPointsALittleAboveTheFinger()
    {
        QFETCH(QPointF, touch);
        QTEST(CopyableLabel::editMenuAnchor(touch), "anchor");
    }

    void theContextMenuKeepsTheTextThatTheLabelWasMadeWith()
    {
        QQmlEngine engine;
        prepareEngine(engine);
        QQmlComponent component(&engine);
        component.setData("import Trackwise.Information\nCopyableLabelView { width: 100; text: 'made' }", {});
        const std::unique_ptr<QObject> object(component.create());
        auto *label = qobject_cast<CopyableLabel *>(object.get());
        QVERIFY2(label, qPrintable(component.errorString()));
        label->setText(QStringLiteral("updated"));
        label->copyCreationText();
        QCOMPARE(clipboardText(), QStringLiteral("made"));
        label->copy();
        QCOMPARE(clipboardText(), QStringLiteral("updated"));
        label->setSelection(QStringLiteral("date"));
        label->copy();
        QCOMPARE(clipboardText(), QStringLiteral("date"));
    }

    void anotherSongsMenusCopyItsOwnTexts()
    {
        ListWindow list(ratedSong());
        MediaItem song;
        song.title = QStringLiteral("Another");
        list.showInstead(song);
        list.click(Qt::RightButton, QStringLiteral("Title"));
        QTRY_VERIFY(list.find(QStringLiteral("Copy")));
        list.press(Qt::Key_Down);
        list.press(Qt::Key_Return);
        QCOMPARE(clipboardText(), QStringLiteral("Another"));
    }
};

QTEST_MAIN(tst_Copying)
#include "tst_Copying.moc"
