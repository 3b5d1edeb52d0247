// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/MprisNames.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>

namespace trackwise {

/// A player on the session bus that says what it is told to, right or wrong, through a connection of its own.
class FakePlayer : public QDBusVirtualObject
{
public:
    enum class Manners {
        Answers,
        Hangs,   ///< never replies
        Fails,   ///< replies with errors
        Rambles, ///< replies with what nobody asked for
    };

    explicit FakePlayer(const QString &name, Manners initialManners = Manners::Answers)
        : manners(initialManners)
        , m_name(mprisPrefix + name)
    {
        m_bus.registerVirtualObject(mprisPath, this);
    }
    ~FakePlayer() override
    {
        m_bus.unregisterObject(mprisPath);
        const QString connection = m_bus.name();
        m_bus = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus(connection);
    }

    [[nodiscard]] bool appear() { return m_bus.registerService(m_name); }
    void vanish() { m_bus.unregisterService(m_name); }
    /// Changes properties without telling.
    void set(const QVariantMap &properties) { m_properties.insert(properties); }
    /// Changes properties and tells.
    void change(const QVariantMap &properties)
    {
        set(properties);
        sendChange({mprisPlayerInterface, properties, QStringList()});
    }
    void seekTo(qlonglong microseconds)
    {
        send(mprisPlayerInterface, QStringLiteral("Seeked"), {microseconds});
    }
    /// Sends any arguments as a change of properties.
    void sendChange(const QVariantList &arguments)
    {
        send(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
             arguments);
    }

    Manners manners;
    int reads = 0;
    int raised = 0;

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        if (message.member() == QLatin1String("Raise"))
            ++raised;
        if (message.member() != QLatin1String("GetAll"))
            return false;
        const bool isOfPlayer = message.arguments().value(0).toString() == mprisPlayerInterface;
        reads += isOfPlayer ? 1 : 0;
        switch (manners) {
        case Manners::Hangs:
            message.setDelayedReply(true);
            return true;
        case Manners::Fails:
            return bus.send(message.createErrorReply(QDBusError::InternalError, m_name));
        case Manners::Rambles:
            return bus.send(message.createReply({42, m_name, QVariantList{true}}));
        case Manners::Answers:
            break;
        }
        const QVariantMap ofRoot{{QStringLiteral("Identity"), m_name + u'!'},
                                 {QStringLiteral("CanRaise"), true}};
        return bus.send(message.createReply(isOfPlayer ? m_properties : ofRoot));
    }

private:
    void send(const QString &interface, const QString &name, const QVariantList &arguments)
    {
        QDBusMessage signal = QDBusMessage::createSignal(mprisPath, interface, name);
        signal.setArguments(arguments);
        m_bus.send(signal);
    }

    static inline int connections = 0;

    QString m_name;
    QDBusConnection m_bus = QDBusConnection::connectToBus(
        QDBusConnection::SessionBus, QStringLiteral("fake player %1").arg(++connections));
    QVariantMap m_properties;
};

/// The properties of a player that plays @p title by @p artist.
[[nodiscard]] inline QVariantMap playing(const QString &title, const QString &artist = {}, double seconds = 0,
                                         const QString &status = QStringLiteral("Playing"))
{
    QVariantMap metadata{
        {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(QStringLiteral("/track/1")))},
        {QStringLiteral("xesam:title"), title}};
    if (!artist.isEmpty())
        metadata.insert(QStringLiteral("xesam:artist"), QStringList(artist));
    if (seconds > 0)
        metadata.insert(QStringLiteral("mpris:length"), qlonglong(seconds * 1e6));
    return {{QStringLiteral("PlaybackStatus"), status}, {QStringLiteral("Metadata"), metadata}};
}

} // namespace trackwise
