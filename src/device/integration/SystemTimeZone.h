// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimeZone>

namespace trackwise {

/// The time zone of the system, followed while the program runs: whoever sets it, such as
/// org.freedesktop.timedate1, replaces /etc/localtime, see localtime(5). Main thread.
class SystemTimeZone : public QObject
{
    Q_OBJECT

public:
    explicit SystemTimeZone(const QString &folder = QStringLiteral("/etc"), QObject *parent = nullptr);

    [[nodiscard]] const QTimeZone &zone() const { return m_zone; }

Q_SIGNALS:
    void zoneDidChange();

private:
    void look();

    QFileSystemWatcher m_watcher; ///< of the folder: a watch of the link would follow it
    QTimeZone m_zone;
};

} // namespace trackwise
