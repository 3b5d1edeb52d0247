// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Test.h"
#include "ui/KeyboardScrolling.h"

#include <QSignalSpy>

class tst_KeyboardScrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scrollsAsLittleAsNeeded()
    {
        const auto offset = [](qreal start, qreal end) { // -1: stays as it is
            return revealingOffset({start, end}, {100, 400}, 30).value_or(-1);
        };
        QCOMPARE(offset(50, 90), 20);      // above
        QCOMPARE(offset(99, 140), 69);     // cut off at the top
        QCOMPARE(offset(100, 400), -1);    // fills the view
        QCOMPARE(offset(380, 401), 131);   // cut off at the bottom
        QCOMPARE(offset(450, 500), 230);   // below
        QCOMPARE(offset(500, 790), 500);   // below, without room for all the air
        QCOMPARE(offset(-300, 100), -330); // longer, above
        QCOMPARE(offset(-300, 101), -1);   // its last point is in view
        QCOMPARE(offset(399, 800), -1);    // its first point is in view
        QCOMPARE(offset(400, 701), 370);   // longer, below
    }

    void keysScrollByLinesAndPages()
    {
        QQuickItem page;
        page.setHeight(300);
        KeyboardScrolling scrolling;
        scrolling.setPage(&page);
        scrolling.setProperty("lineStep", 48);
        const QSignalSpy wanted(&scrolling, &KeyboardScrolling::scrollWanted);
        for (const int key :
             {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End})
            QVERIFY(scrolling.scrollForKey(key, 1000));
        QVERIFY(!scrolling.scrollForKey(Qt::Key_Left, 1000));
        QList<qreal> places;
        for (const QList<QVariant> &arguments : wanted)
            places << arguments.first().toReal();
        QCOMPARE(places, QList<qreal>({952, 1048, 748, 1252, 0, qInf()}));
    }
};

QTEST_GUILESS_MAIN(tst_KeyboardScrolling)
#include "tst_KeyboardScrolling.moc"
