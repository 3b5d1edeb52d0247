// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopConditions.h"

namespace trackwise {

namespace {

constexpr uint lowBattery = 3; // of the warning levels of org.freedesktop.UPower.Device

BusProperty::Address screenReader()
{
    return {QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
            QStringLiteral("org.a11y.Status"), QStringLiteral("ScreenReaderEnabled")};
}

BusProperty::Address portal()
{
    return {
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.PowerProfileMonitor"), QStringLiteral("power-saver-enabled")};
}

BusProperty::Address profileDaemon()
{
    return {QStringLiteral("org.freedesktop.UPower.PowerProfiles"),
            QStringLiteral("/org/freedesktop/UPower/PowerProfiles"),
            QStringLiteral("org.freedesktop.UPower.PowerProfiles"), QStringLiteral("ActiveProfile")};
}

BusProperty::Address oldProfileDaemon()
{
    return {QStringLiteral("net.hadess.PowerProfiles"), QStringLiteral("/net/hadess/PowerProfiles"),
            QStringLiteral("net.hadess.PowerProfiles"), QStringLiteral("ActiveProfile")};
}

BusProperty::Address battery()
{
    return {QStringLiteral("org.freedesktop.UPower"),
            QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice"),
            QStringLiteral("org.freedesktop.UPower.Device"), QStringLiteral("WarningLevel")};
}

bool saysToSave(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::UInt:
        return value.toUInt() >= lowBattery;
    default:
        return value.toString() == QLatin1StringView("power-saver");
    }
}

} // namespace

DesktopConditions::DesktopConditions(const QDBusConnection &session, const QDBusConnection &system,
                                     QObject *parent)
    : DeviceConditions(parent)
    , m_screenReader(session, screenReader())
    , m_power{BusProperty{session, portal()}, BusProperty{system, profileDaemon()},
              BusProperty{system, oldProfileDaemon()}, BusProperty{system, battery()}}
{
    connect(&m_screenReader, &BusProperty::didChange, this, &DeviceConditions::conditionsDidChange);
    for (const BusProperty &source : m_power)
        connect(&source, &BusProperty::didChange, this, &DeviceConditions::conditionsDidChange);
}

bool DesktopConditions::isScreenReaderRunning() const
{
    return !m_screenReader.isAnswered() || m_screenReader.value().toBool();
}

bool DesktopConditions::isSavingPower() const
{
    for (const BusProperty &source : m_power) {
        if (!source.isAnswered())
            return true;
        if (source.value().isValid())
            return saysToSave(source.value());
    }
    return false;
}

} // namespace trackwise
