// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/bus/BusProperty.h"
#include "platform/DeviceConditions.h"

#include <QDBusConnection>

#include <array>

namespace trackwise {

/// What the desktop and the system say: that a screen reader runs (org.a11y.Status), and that power is to be
/// saved. Of the latter the desktop portal knows best (it reaches into sandboxes); else the power profile
/// daemon, under its new or its old name; else UPower, for which power is short when its warning level is
/// "low" or worse. Each may be absent: where none is there, power is not saved. Main thread.
class DesktopConditions : public DeviceConditions
{
    Q_OBJECT

public:
    explicit DesktopConditions(const QDBusConnection &session = QDBusConnection::sessionBus(),
                               const QDBusConnection &system = QDBusConnection::systemBus(),
                               QObject *parent = nullptr);

    [[nodiscard]] bool isScreenReaderRunning() const override;
    [[nodiscard]] bool isSavingPower() const override;

private:
    BusProperty m_screenReader;
    std::array<BusProperty, 4> m_power; ///< the one that knows best first
};

} // namespace trackwise
