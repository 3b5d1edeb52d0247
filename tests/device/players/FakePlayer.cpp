// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/FakePlayer.h"

#include "device/players/MprisMetadata.h"

#include <QDBusMessage>
#include <QDBusObjectPath>

using namespace Qt::StringLiterals;

namespace trackwise {

namespace {
int connections = 0;
} // namespace

FakePlayer::FakePlayer(const QString &name, Manners manners)
    : m_name(QLatin1String(mprisPrefix) + name)
    , m_manners(manners)
    , m_bus(
          QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"fake player %1"_s.arg(++connections)))
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
    m_bus.send(
        QDBusMessage::createSignal(QLatin1String(mprisPath), QLatin1String(mprisPlayerInterface), u"Seeked"_s)
        << microseconds);
}

void FakePlayer::sendChange(const QVariantList &arguments)
{
    QDBusMessage signal = QDBusMessage::createSignal(
        QLatin1String(mprisPath), u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
    signal.setArguments(arguments);
    m_bus.send(signal);
}

bool FakePlayer::handleMessage(const QDBusMessage &message, const QDBusConnection &bus)
{
    if (message.member() == "Raise"_L1)
        ++m_raised;
    if (message.member() != "GetAll"_L1)
        return false;
    if (message.arguments().value(0).toString() == QLatin1String(mprisPlayerInterface))
        ++m_reads;
    switch (m_manners) {
    case Manners::Hangs:
        message.setDelayedReply(true);
        return true;
    case Manners::Fails:
        return bus.send(message.createErrorReply(QDBusError::InternalError, u"no"_s));
    case Manners::Rambles:
        return bus.send(message.createReply({42, u"PlaybackStatus"_s, QVariantList{true}}));
    case Manners::Answers:
        break;
    }
    if (message.arguments().value(0).toString() == QLatin1String(mprisPlayerInterface))
        return bus.send(message.createReply(m_properties));
    return bus.send(
        message.createReply(QVariantMap{{u"Identity"_s, m_name + u"!"_s}, {u"CanRaise"_s, true}}));
}

QVariantMap playing(const QString &title, const QString &artist, double seconds, const QString &status)
{
    QVariantMap metadata{{u"mpris:trackid"_s, QVariant::fromValue(QDBusObjectPath(u"/track/1"_s))},
                         {u"xesam:title"_s, title}};
    if (!artist.isEmpty())
        metadata.insert(u"xesam:artist"_s, QStringList(artist));
    if (seconds > 0)
        metadata.insert(u"mpris:length"_s, qlonglong(seconds * 1e6));
    return {{u"PlaybackStatus"_s, status}, {u"Metadata"_s, metadata}};
}

} // namespace trackwise
