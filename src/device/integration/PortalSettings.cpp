// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/PortalSettings.h"

#include <QColor>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <algorithm>
#include <array>

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

QVariant colour(const QDBusArgument &argument)
{
    if (argument.currentSignature() != QLatin1StringView("(ddd)"))
        return {};
    std::array<double, 3> parts{}; // red, green, blue
    argument.beginStructure();
    for (double &part : parts)
        argument >> part;
    argument.endStructure();
    if (!std::ranges::all_of(parts, [](double part) { return part >= 0 && part <= 1; }))
        return {};
    const auto at = [&parts](std::size_t i) { return static_cast<float>(parts.at(i)); };
    return QColor::fromRgbF(at(0), at(1), at(2));
}

} // namespace

QVariant plainSettingValue(const QVariant &value)
{
    QVariant plain = value;
    while (plain.metaType() == QMetaType::fromType<QDBusVariant>())
        plain = plain.value<QDBusVariant>().variant();
    if (plain.metaType() == QMetaType::fromType<QDBusArgument>())
        return colour(plain.value<QDBusArgument>());
    return plain;
}

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
    const auto *watcher = new QDBusPendingCallWatcher(connection.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *finished) {
        finished->deleteLater();
        takeAll(*finished);
    });
}

void PortalSettings::takeAll(const QDBusPendingCallWatcher &reply)
{
    const QDBusMessage message = reply.reply();
    if (message.signature() != QLatin1StringView("a{sa{sv}}"))
        return; // no portal, or none that knows settings: the palette has to do
    const auto spaces = qdbus_cast<SettingsOfSpaces>(message.arguments().constFirst());
    for (auto space = spaces.begin(); space != spaces.end(); ++space) {
        for (auto setting = space->begin(); setting != space->end(); ++setting)
            m_values.insert({space.key(), setting.key()}, plainSettingValue(setting.value()));
    }
    Q_EMIT didChange();
}

void PortalSettings::settingChanged(const QString &space, const QString &key, const QDBusVariant &value)
{
    if (!followedSpaces().contains(space))
        return;
    m_values.insert({space, key}, plainSettingValue(value.variant()));
    Q_EMIT didChange();
}

} // namespace trackwise
