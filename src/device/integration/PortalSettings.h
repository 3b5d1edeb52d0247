// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/integration/DesktopLook.h"

#include <QDBusConnection>
#include <QObject>

class QDBusMessage;
class QDBusVariant;

namespace trackwise {

/// Keeps a copy of the desktop's settings from the desktop portal (org.freedesktop.portal.Settings, versions
/// 1 and 2). Asks once and follows the changes, always asynchronously; without a bus, a portal or a backend
/// it stays empty. Main thread.
class PortalSettings : public QObject
{
    Q_OBJECT

public:
    explicit PortalSettings(const QDBusConnection &bus, QObject *parent = nullptr);

    [[nodiscard]] const DesktopSettings &values() const { return m_values; }

Q_SIGNALS:
    void didChange();

private Q_SLOTS:
    void settingChanged(const QString &space, const QString &key, const QDBusVariant &value);

private:
    void takeAll(const QDBusMessage &reply);

    DesktopSettings m_values;
};

} // namespace trackwise
