// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QThreadPool>
#include <QVariantMap>

#include <optional>

namespace trackwise {

/// The four values that the app keeps between launches. One store is shared by all windows. A value counts
/// at once; it is written to the file by a thread of its own, since the disk may take longer than a frame.
/// Main thread only.
class Preferences
{
public:
    /// Reads what @p file holds, in the format of QSettings::IniFormat.
    explicit Preferences(QString file);
    /// Waits until everything has been written.
    ~Preferences();
    Q_DISABLE_COPY_MOVE(Preferences)

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
    void store(QLatin1StringView key, const QVariant &value);

    QString m_file;
    QVariantMap m_values;
    QThreadPool m_writer;
};

} // namespace trackwise
