// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/Preferences.h"

#include <QSettings>

#include <utility>

namespace trackwise {

namespace {
constexpr QLatin1StringView showMoreInformationKey("ShowMoreInformation");
constexpr QLatin1StringView firstLaunchDateKey("FirstLaunchDate");
constexpr QLatin1StringView soundsViewedCountKey("SoundsViewedCount");
constexpr QLatin1StringView lastReviewRequestDateKey("LastReviewRequestDate");

// A text that merely looks like a date is not one: only a stored date counts.
std::optional<QDateTime> dateUnder(const QVariantMap &values, QLatin1StringView key)
{
    const QVariant stored = values.value(key);
    if (stored.typeId() != QMetaType::QDateTime)
        return std::nullopt;
    const QDateTime date = stored.toDateTime();
    return date.isValid() ? std::optional(date) : std::nullopt;
}
} // namespace

Preferences::Preferences(QString file)
    : m_file(std::move(file))
{
    m_writer.setMaxThreadCount(1); // the last value set is the last one written
    const QSettings stored(m_file, QSettings::IniFormat);
    for (const QLatin1StringView key :
         {showMoreInformationKey, firstLaunchDateKey, soundsViewedCountKey, lastReviewRequestDateKey}) {
        if (stored.contains(key))
            m_values.insert(key, stored.value(key));
    }
}

Preferences::~Preferences()
{
    m_writer.waitForDone();
}

void Preferences::store(QLatin1StringView key, const QVariant &value)
{
    m_values.insert(key, value);
    m_writer.start([file = m_file, key, value] {
        QSettings(file, QSettings::IniFormat).setValue(key, value); // written as it goes
    });
}

bool Preferences::showMoreInformation() const
{
    return m_values.value(showMoreInformationKey, false).toBool();
}

void Preferences::setShowMoreInformation(bool show)
{
    store(showMoreInformationKey, show);
}

std::optional<QDateTime> Preferences::firstLaunchDate() const
{
    return dateUnder(m_values, firstLaunchDateKey);
}

void Preferences::setFirstLaunchDate(const QDateTime &date)
{
    store(firstLaunchDateKey, date);
}

int Preferences::soundsViewedCount() const
{
    return m_values.value(soundsViewedCountKey, 0).toInt();
}

void Preferences::setSoundsViewedCount(int count)
{
    store(soundsViewedCountKey, count);
}

std::optional<QDateTime> Preferences::lastReviewRequestDate() const
{
    return dateUnder(m_values, lastReviewRequestDateKey);
}

void Preferences::setLastReviewRequestDate(const QDateTime &date)
{
    store(lastReviewRequestDateKey, date);
}

} // namespace trackwise
