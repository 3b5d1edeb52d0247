// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/KeyboardReveal.h"

#include <QTest>

using namespace trackwise;

class tst_KeyboardReveal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scrollsAsLittleAsNeeded_data()
    {
        QTest::addColumn<qreal>("start");
        QTest::addColumn<qreal>("end");
        QTest::addColumn<std::optional<qreal>>("offset"); // of a view from 100 to 400, with 30 points of air
        const auto row = [](const char *name, qreal start, qreal end, std::optional<qreal> offset) {
            QTest::newRow(name) << start << end << offset;
        };
        row("above", 50, 90, 20);
        row("cut off at the top", 99, 140, 69);
        row("fills the view", 100, 400, std::nullopt);
        row("cut off at the bottom", 380, 401, 131);
        row("below", 450, 500, 230);
        row("below, without room for all the air", 500, 790, 500);
        row("longer, above", -300, 100, -330);
        row("longer, its last point in view", -300, 101, std::nullopt);
        row("longer, its first point in view", 399, 800, std::nullopt);
        row("longer, below", 400, 701, 370);
    }
    void scrollsAsLittleAsNeeded()
    {
        QFETCH(qreal, start);
        QFETCH(qreal, end);
        QTEST(revealingOffset({start, end}, {100, 400}, 30), "offset");
    }
};

QTEST_GUILESS_MAIN(tst_KeyboardReveal)
#include "tst_KeyboardReveal.moc"
