// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QMutex>
#include <QString>
#include <QThreadPool>
#include <QVariantMap>

#include <optional>

namespace trackwise {

/// The four values that the app keeps between launches. One store is shared by all windows, and its file by
/// all processes: each value is read as the file has it now, and only what was set is written. A value counts
/// at once; it is written by a thread of its own, since the disk may take longer than a frame. Main thread
/// only.
class Preferences
{
public:
    /// @p file is in the format of QSettings::IniFormat.
    explicit Preferences(QString file);
    Q_DISABLE_COPY_MOVE(Preferences)

    [[nodiscard]] bool showMoreInformation() const;
    void setShowMoreInformation(bool show);

    /// Absent until the first launch has been recorded, or when something other than a date is stored. Dates
    /// are kept in UTC; what was stored without a zone is local time.
    [[nodiscard]] std::optional<QDateTime> firstLaunchDate() const;
    void setFirstLaunchDate(const QDateTime &date);

    [[nodiscard]] int soundsViewedCount() const;
    /// One more; views that other processes count at the same time are not lost.
    void countViewedSound();

    [[nodiscard]] std::optional<QDateTime> lastReviewRequestDate() const;
    void setLastReviewRequestDate(const QDateTime &date);

private:
    /// What the file does not have yet.
    struct Unwritten
    {
        QVariantMap values;
        int viewedSounds = 0; ///< what the count is to grow by, whatever it is by then
    };

    [[nodiscard]] QVariant value(QLatin1StringView key) const;
    [[nodiscard]] std::optional<QDateTime> date(QLatin1StringView key) const;
    void set(QLatin1StringView key, const QVariant &value);
    void write();

    QString m_file;
    mutable QMutex m_mutex; ///< over m_unwritten and the moment in which it becomes written
    Unwritten m_unwritten;
    QThreadPool m_writer; ///< goes first, once everything has been written
};

} // namespace trackwise
