// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/SystemTimeZone.h"

namespace trackwise {

SystemTimeZone::SystemTimeZone(const QString &folder, QObject *parent)
    : QObject(parent)
    , m_watcher({folder})
    , m_zone(QTimeZone::systemTimeZone())
{
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &SystemTimeZone::look);
}

void SystemTimeZone::look()
{
    const QTimeZone zone = QTimeZone::systemTimeZone();
    if (zone == m_zone)
        return;
    m_zone = zone;
    Q_EMIT zoneDidChange();
}

} // namespace trackwise
