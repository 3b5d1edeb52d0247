// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/PortalSettings.h"

#include "device/bus/BusCalls.h"
#include "device/bus/PlainValue.h"

#include <QDBusArgument>
#include <QDBusVariant>

namespace trackwise {

namespace {

using SettingsOfSpaces = QMap<QString, QVariantMap>;

constexpr QLatin1StringView portalName("org.freedesktop.portal.Desktop");
constexpr QLatin1StringView portalPath("/org/freedesktop/portal/desktop");
constexpr QLatin1StringView settingsInterface("org.freedesktop.portal.Settings");

QStringList followedSpaces()
{
    return {QStringLiteral("org.freedesktop.appearance"), QStringLiteral("org.gnome.desktop.interface"),
            QStringLiteral("org.gnome.desktop.a11y.interface"), QStringLiteral("org.kde.kdeglobals.KDE")};
}

} // namespace

PortalSettings::PortalSettings(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
{
    QDBusConnection connection = bus;
    if (!connection.isConnected())
        return;
    // No sender is named: naming one would make Qt wait for the bus to say who that is.
    connection.connect({}, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
                       SLOT(settingChanged(QString, QString, QDBusVariant)));

    // One question for everything. Unlike Read, ReadAll is the same in both versions of the interface.
    QDBusMessage question =
        QDBusMessage::createMethodCall(portalName, portalPath, settingsInterface, QStringLiteral("ReadAll"));
    question << followedSpaces();
    whenReplied(connection.asyncCall(question), this, [this](const QDBusMessage &reply) { takeAll(reply); });
}

void PortalSettings::takeAll(const QDBusMessage &reply)
{
    if (reply.signature() != QLatin1StringView("a{sa{sv}}"))
        return; // no portal, or none that knows settings: the palette has to do
    const auto spaces = qdbus_cast<SettingsOfSpaces>(reply.arguments().constFirst());
    for (auto space = spaces.begin(); space != spaces.end(); ++space) {
        for (auto setting = space->begin(); setting != space->end(); ++setting)
            m_values.insert({space.key(), setting.key()}, plainValue(setting.value()));
    }
    Q_EMIT didChange();
}

void PortalSettings::settingChanged(const QString &space, const QString &key, const QDBusVariant &value)
{
    if (!followedSpaces().contains(space))
        return;
    m_values.insert({space, key}, plainValue(value.variant()));
    Q_EMIT didChange();
}

} // namespace trackwise
