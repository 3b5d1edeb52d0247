// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ReviewPolicy.h"

#include <QTest>
#include <QTimeZone>

#include <functional>

using namespace trackwise;

Q_DECLARE_METATYPE(trackwise::ReviewFacts)

class tst_ReviewPolicy : public QObject
{
    Q_OBJECT

private:
    // One hour after a summer time began: a day of 23 hours lies behind it.
    const QTimeZone m_zone{"Europe/Berlin"};
    const QDateTime m_now{QDate(2026, 3, 29), QTime(12, 0), m_zone};

    [[nodiscard]] ReviewFacts allowed() const
    {
        return {true, 5, m_now.addDays(-1), m_now.addMSecs(-3001), std::nullopt};
    }

private Q_SLOTS:
    void asksOnlyWhenEveryConditionHolds_data()
    {
        QTest::addColumn<ReviewFacts>("facts");
        QTest::addColumn<bool>("asks");
        const auto row = [this](const char *name, bool asks,
                                const std::function<void(ReviewFacts &)> &change) {
            ReviewFacts facts = allowed();
            change(facts);
            QTest::newRow(name) << facts << asks;
        };
        row("all hold", true, [](ReviewFacts &) {});
        row("not in a window", false, [](ReviewFacts &f) { f.isInWindow = false; });
        row("four songs", false, [](ReviewFacts &f) { f.soundsViewedCount = 4; });
        row("first launch unknown", false, [](ReviewFacts &f) { f.firstLaunchDate.reset(); });
        row("a minute short of a day", false,
            [this](ReviewFacts &f) { f.firstLaunchDate = m_now.addDays(-1).addSecs(60); });
        row("same time yesterday, in another zone", true,
            [this](ReviewFacts &f) { f.firstLaunchDate = m_now.addDays(-1).toUTC(); });
        row("window three seconds old", false,
            [this](ReviewFacts &f) { f.loadedDate = m_now.addMSecs(-3000); });
        row("asked a minute short of fourteen days ago", false,
            [this](ReviewFacts &f) { f.lastReviewRequestDate = m_now.addDays(-14).addSecs(60); });
        row("asked fourteen days ago", true,
            [this](ReviewFacts &f) { f.lastReviewRequestDate = m_now.addDays(-14); });
        row("first launch in the future", false,
            [this](ReviewFacts &f) { f.firstLaunchDate = m_now.addDays(3); });
    }
    void asksOnlyWhenEveryConditionHolds()
    {
        QFETCH(ReviewFacts, facts);
        QTEST(shouldRequestReview(facts, m_now), "asks");
    }
};

QTEST_GUILESS_MAIN(tst_ReviewPolicy)
#include "tst_ReviewPolicy.moc"
