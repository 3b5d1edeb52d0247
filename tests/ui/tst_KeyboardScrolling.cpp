// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/KeyboardScrolling.h"

#include <QTest>

using namespace trackwise;

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
};

QTEST_GUILESS_MAIN(tst_KeyboardScrolling)
#include "tst_KeyboardScrolling.moc"
