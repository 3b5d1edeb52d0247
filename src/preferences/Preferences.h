// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QSettings>

#include <optional>

namespace trackwise {

/// The four values that the app keeps between launches. One store is shared by all windows.
/// Main thread only.
class Preferences
{
public:
    /// Keeps the values in @p defaults, which must outlive this object.
    explicit Preferences(QSettings &defaults)
        : m_defaults(defaults)
    {}

    [[nodiscard]] bool showMoreInformation() const;
    void setShowMoreInformation(bool show);

    /// Absent until the first launch has been recorded, or when something other than a date is stored.
    [[nodiscard]] std::optional<QDateTime> firstLaunchDate() const;
    void setFirstLaunchDate(const QDateTime &date);

    [[nodiscard]] int soundsViewedCount() const;
    void setSoundsViewedCount(int count);

    [[nodiscard]] std::optional<QDateTime> lastReviewRequestDate() const;
    void setLastReviewRequestDate(const QDateTime &date);

private:
    QSettings &m_defaults;
};

} // namespace trackwise
