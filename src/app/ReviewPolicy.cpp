// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ReviewPolicy.h"

#include <QTimeZone>

namespace trackwise {

namespace {

constexpr int leastSongsViewed = 5;
constexpr qint64 leastDaysSinceFirstLaunch = 1;
constexpr qint64 leastMsSinceLoad = 3000;
constexpr qint64 leastDaysSinceLastRequest = 14;

qint64 wholeDays(const QDateTime &from, const QDateTime &to)
{
    const QDateTime local = from.toTimeZone(to.timeZone());
    qint64 days = local.daysTo(to);
    if (days > 0 && local.addDays(days) > to)
        --days;
    return days;
}

} // namespace

bool shouldRequestReview(const ReviewFacts &facts, const QDateTime &now)
{
    if (!facts.isInWindow || facts.soundsViewedCount < leastSongsViewed)
        return false;
    if (wholeDays(facts.firstLaunchDate.value_or(now), now) < leastDaysSinceFirstLaunch)
        return false;
    if (facts.loadedDate.msecsTo(now) <= leastMsSinceLoad)
        return false;
    return !facts.lastReviewRequestDate ||
           wholeDays(*facts.lastReviewRequestDate, now) >= leastDaysSinceLastRequest;
}

} // namespace trackwise
