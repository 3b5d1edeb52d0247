// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>

#include <optional>

namespace trackwise {

/// What the decision to ask for a review depends on.
struct ReviewFacts
{
    bool isInWindow = false;
    int soundsViewedCount = 0;
    std::optional<QDateTime> firstLaunchDate;
    QDateTime loadedDate; ///< when the window's container was made
    std::optional<QDateTime> lastReviewRequestDate;
};

/// Whether the user has looked at enough songs, over enough days, to be asked for a review at @p now. Whole
/// days are counted in the user's time zone: a day has passed when the same time of day is reached again.
[[nodiscard]] bool shouldRequestReview(const ReviewFacts &facts, const QDateTime &now);

} // namespace trackwise
