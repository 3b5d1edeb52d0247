// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/Preferences.h"

#include <QLockFile>
#include <QSettings>

#include <utility>

namespace trackwise {

namespace {
constexpr QLatin1StringView showMoreInformationKey("ShowMoreInformation");
constexpr QLatin1StringView firstLaunchDateKey("FirstLaunchDate");
constexpr QLatin1StringView soundsViewedCountKey("SoundsViewedCount");
constexpr QLatin1StringView lastReviewRequestDateKey("LastReviewRequestDate");
} // namespace

Preferences::Preferences(QString file)
    : m_file(std::move(file))
{
    m_writer.setMaxThreadCount(1);
}

QVariant Preferences::value(QLatin1StringView key) const
{
    {
        const QMutexLocker lock(&m_mutex);
        if (const auto found = m_unwritten.values.constFind(key); found != m_unwritten.values.cend())
            return *found;
    }
    return QSettings(m_file, QSettings::IniFormat).value(key); // read again only if the file has changed
}

// A text that merely looks like a date is not one: only a stored date counts.
std::optional<QDateTime> Preferences::date(QLatin1StringView key) const
{
    const QVariant stored = value(key);
    if (stored.typeId() != QMetaType::QDateTime)
        return std::nullopt;
    const QDateTime date = stored.toDateTime();
    return date.isValid() ? std::optional(date.toUTC()) : std::nullopt;
}

void Preferences::set(QLatin1StringView key, const QVariant &value)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_unwritten.values.insert(key, value);
    }
    m_writer.start([this] { write(); });
}

void Preferences::write()
{
    // QSettings locks the file while it writes, but not from reading a count to writing it.
    QLockFile counting(m_file + QStringLiteral(".counting"));
    counting.lock();
    QSettings stored(m_file, QSettings::IniFormat);
    Unwritten written;
    {
        const QMutexLocker lock(&m_mutex);
        written = m_unwritten;
    }
    if (written.viewedSounds > 0)
        written.values.insert(soundsViewedCountKey,
                              stored.value(soundsViewedCountKey).toInt() + written.viewedSounds);
    for (auto value = written.values.cbegin(); value != written.values.cend(); ++value)
        stored.setValue(value.key(), value.value());

    const QMutexLocker lock(&m_mutex);
    m_unwritten.viewedSounds -= written.viewedSounds;
    m_unwritten.values.removeIf([&](const QVariantMap::iterator &value) {
        return value.key() == soundsViewedCountKey ? m_unwritten.viewedSounds == 0
                                                   : written.values.value(value.key()) == value.value();
    });
}

bool Preferences::showMoreInformation() const
{
    return value(showMoreInformationKey).toBool();
}

void Preferences::setShowMoreInformation(bool show)
{
    set(showMoreInformationKey, show);
}

std::optional<QDateTime> Preferences::firstLaunchDate() const
{
    return date(firstLaunchDateKey);
}

void Preferences::setFirstLaunchDate(const QDateTime &date)
{
    set(firstLaunchDateKey, date.toUTC());
}

int Preferences::soundsViewedCount() const
{
    return value(soundsViewedCountKey).toInt();
}

void Preferences::countViewedSound()
{
    const int count = soundsViewedCount() + 1;
    {
        const QMutexLocker lock(&m_mutex);
        ++m_unwritten.viewedSounds;
    }
    set(soundsViewedCountKey, count);
}

std::optional<QDateTime> Preferences::lastReviewRequestDate() const
{
    return date(lastReviewRequestDateKey);
}

void Preferences::setLastReviewRequestDate(const QDateTime &date)
{
    set(lastReviewRequestDateKey, date.toUTC());
}

} // namespace trackwise
