// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/players/FakePlayer.h"

#include "platform/linux/players/MprisMetadata.h"

#include <QDBusMessage>
#include <QDBusObjectPath>

namespace trackwise {

namespace {
int connections = 0;
} // namespace

FakePlayer::FakePlayer(const QString &name, Manners manners)
    : m_name(QLatin1String(mprisPrefix) + name)
    , m_manners(manners)
    , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                          QStringLiteral("fake player %1").arg(++connections)))
{
    m_bus.registerVirtualObject(QLatin1String(mprisPath), this);
}

FakePlayer::~FakePlayer()
{
    m_bus.unregisterObject(QLatin1String(mprisPath));
    const QString connection = m_bus.name();
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(connection);
}

bool FakePlayer::appear()
{
    return m_bus.registerService(m_name);
}

void FakePlayer::vanish()
{
    m_bus.unregisterService(m_name);
}

void FakePlayer::set(const QVariantMap &properties)
{
    m_properties.insert(properties);
}

void FakePlayer::change(const QVariantMap &properties)
{
    set(properties);
    sendChange({QLatin1String(mprisPlayerInterface), properties, QStringList()});
}

void FakePlayer::invalidate(const QStringList &properties)
{
    sendChange({QLatin1String(mprisPlayerInterface), QVariantMap(), properties});
}

void FakePlayer::seekTo(qlonglong microseconds)
{
    m_bus.send(QDBusMessage::createSignal(QLatin1String(mprisPath), QLatin1String(mprisPlayerInterface),
                                          QStringLiteral("Seeked"))
               << microseconds);
}

void FakePlayer::sendChange(const QVariantList &arguments)
{
    QDBusMessage signal = QDBusMessage::createSignal(QLatin1String(mprisPath),
                                                     QStringLiteral("org.freedesktop.DBus.Properties"),
                                                     QStringLiteral("PropertiesChanged"));
    signal.setArguments(arguments);
    m_bus.send(signal);
}

bool FakePlayer::handleMessage(const QDBusMessage &message, const QDBusConnection &bus)
{
    if (message.member() == QLatin1String("Raise"))
        ++m_raised;
    if (message.member() != QLatin1String("GetAll"))
        return false;
    if (message.arguments().value(0).toString() == QLatin1String(mprisPlayerInterface))
        ++m_reads;
    switch (m_manners) {
    case Manners::Hangs:
        message.setDelayedReply(true);
        return true;
    case Manners::Fails:
        return bus.send(message.createErrorReply(QDBusError::InternalError, QStringLiteral("no")));
    case Manners::Rambles:
        return bus.send(message.createReply({42, QStringLiteral("PlaybackStatus"), QVariantList{true}}));
    case Manners::Answers:
        break;
    }
    if (message.arguments().value(0).toString() == QLatin1String(mprisPlayerInterface))
        return bus.send(message.createReply(m_properties));
    return bus.send(message.createReply(QVariantMap{
        {QStringLiteral("Identity"), m_name + QStringLiteral("!")}, {QStringLiteral("CanRaise"), true}}));
}

QVariantMap playing(const QString &title, const QString &artist, double seconds, const QString &status)
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
