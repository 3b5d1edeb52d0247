// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/Preferences.h"

namespace trackwise {

namespace {
constexpr QLatin1StringView showMoreInformationKey("ShowMoreInformation");
constexpr QLatin1StringView firstLaunchDateKey("FirstLaunchDate");
constexpr QLatin1StringView soundsViewedCountKey("SoundsViewedCount");
constexpr QLatin1StringView lastReviewRequestDateKey("LastReviewRequestDate");

// A text that merely looks like a date is not one: only a stored date counts.
std::optional<QDateTime> dateUnder(const QSettings &defaults, QLatin1StringView key)
{
    const QVariant stored = defaults.value(key);
    if (stored.typeId() != QMetaType::QDateTime)
        return std::nullopt;
    const QDateTime date = stored.toDateTime();
    return date.isValid() ? std::optional(date) : std::nullopt;
}
} // namespace

bool Preferences::showMoreInformation() const
{
    return m_defaults.value(showMoreInformationKey, false).toBool();
}

void Preferences::setShowMoreInformation(bool show)
{
    m_defaults.setValue(showMoreInformationKey, show);
}

std::optional<QDateTime> Preferences::firstLaunchDate() const
{
    return dateUnder(m_defaults, firstLaunchDateKey);
}

void Preferences::setFirstLaunchDate(const QDateTime &date)
{
    m_defaults.setValue(firstLaunchDateKey, date);
}

int Preferences::soundsViewedCount() const
{
    return m_defaults.value(soundsViewedCountKey, 0).toInt();
}

void Preferences::setSoundsViewedCount(int count)
{
    m_defaults.setValue(soundsViewedCountKey, count);
}

std::optional<QDateTime> Preferences::lastReviewRequestDate() const
{
    return dateUnder(m_defaults, lastReviewRequestDateKey);
}

void Preferences::setLastReviewRequestDate(const QDateTime &date)
{
    m_defaults.setValue(lastReviewRequestDateKey, date);
}

} // namespace trackwise
