// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ReviewPolicy.h"
#include "support/Test.h"

#include <QTimeZone>

#include <functional>

class tst_ReviewPolicy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksOnlyWhenEveryConditionHolds()
    {
        // One hour after a summer time began: a day of 23 hours lies behind it.
        const QDateTime now(QDate(2026, 3, 29), QTime(12, 0), QTimeZone("Europe/Berlin"));
        const QDateTime yesterday = now.addDays(-1);
        const QDateTime soonADay = yesterday.addSecs(60);
        const QDateTime old = now.addMSecs(-3001);
        const std::tuple<const char *, ReviewFacts, bool> rows[]{
            {"all hold", {true, 5, yesterday, old, {}}, true},
            {"not in a window", {false, 5, yesterday, old, {}}, false},
            {"four songs", {true, 4, yesterday, old, {}}, false},
            {"first launch unknown", {true, 5, {}, old, {}}, false},
            {"a minute short of a day", {true, 5, soonADay, old, {}}, false},
            {"same time yesterday, in another zone", {true, 5, yesterday.toUTC(), old, {}}, true},
            {"first launch in the future", {true, 5, now.addDays(3), old, {}}, false},
            {"window three seconds old", {true, 5, yesterday, now.addMSecs(-3000), {}}, false},
            {"asked a minute short of 14 days ago", {true, 5, yesterday, old, soonADay.addDays(-13)}, false},
            {"asked fourteen days ago", {true, 5, yesterday, old, yesterday.addDays(-13)}, true},
        };
        for (const auto &[name, facts, asks] : rows)
            QVERIFY2(shouldRequestReview(facts, now) == asks, name);
    }
};

QTEST_GUILESS_MAIN(tst_ReviewPolicy)
#include "tst_ReviewPolicy.moc"
