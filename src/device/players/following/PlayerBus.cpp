// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/PlayerBus.h"

#include "device/bus/BusCalls.h"
#include "device/bus/PlainValue.h"
#include "device/players/MprisNames.h"

#include <utility>

namespace trackwise {

using namespace std::chrono_literals;

namespace {

constexpr auto callTimeout = 2s;
// A player that hangs must not hold up the others. Counted in steps, since only the time in which answers can
// be taken in counts: while the first window is being made, the main thread does not look at any.
constexpr auto surveyTick = 100ms;
constexpr int surveyTicks = 7;
constexpr auto retryDelay = 5s;
constexpr int mostFailures = 3;

const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString metadataKey = QStringLiteral("Metadata");

QDBusMessage playerCall(const QString &owner, const QString &interface, const QString &method)
{
    return QDBusMessage::createMethodCall(owner, mprisPath, interface, method);
}

} // namespace

PlayerBus::PlayerBus(const QDBusConnection &bus, Filter isWanted, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_isWanted(std::move(isWanted))
{
    connect(&m_surveyTimer, &QTimer::timeout, this, [this] {
        if (++m_surveyTicksGone == surveyTicks)
            surveyStep(-m_surveyPending);
    });
}

void PlayerBus::start()
{
    if (!m_bus.isConnected()) {
        Q_EMIT surveyDidEnd();
        return;
    }
    m_isSurveying = true;
    // One subscription for all players: a sender's messages are told apart by its unique name. A
    // subscription by well-known name would ask the bus for its owner, and wait.
    const QString busItself = QStringLiteral("org.freedesktop.DBus");
    m_bus.connect(busItself, QString(), busItself, QStringLiteral("NameOwnerChanged"), this,
                  SLOT(ownerDidChange(QString, QString, QString)));
    m_bus.connect(QString(), mprisPath, propertiesInterface, QStringLiteral("PropertiesChanged"), this,
                  SLOT(propertiesDidChange(QDBusMessage)));
    m_bus.connect(QString(), mprisPath, mprisPlayerInterface, QStringLiteral("Seeked"), this,
                  SLOT(seeked(QDBusMessage)));

    m_surveyTimer.start(surveyTick);
    surveyStep(+1);
    call(busCall(QStringLiteral("ListNames")), [this](const QDBusMessage &reply) {
        const QStringList names = reply.arguments().value(0).toStringList();
        for (const QString &name : names) {
            if (name.startsWith(mprisPrefix))
                findOwner(name.mid(mprisPrefix.size()));
        }
        surveyStep(-1);
    });
}

void PlayerBus::raise(const QString &player)
{
    const auto found = m_players.constFind(player);
    if (found != m_players.constEnd())
        m_bus.send(playerCall(found->owner, mprisRootInterface, QStringLiteral("Raise")));
}

void PlayerBus::ownerDidChange(const QString &name, const QString &, const QString &newOwner)
{
    if (!name.startsWith(mprisPrefix))
        return;
    const QString player = name.mid(mprisPrefix.size());
    removePlayer(player);
    if (!newOwner.isEmpty())
        addPlayer(player, newOwner);
}

void PlayerBus::propertiesDidChange(const QDBusMessage &signal)
{
    const QList<QString> players = m_playersOfOwner.values(signal.service());
    const QVariantList arguments = signal.arguments();
    if (players.isEmpty() || arguments.value(0).toString() != mprisPlayerInterface)
        return;
    const QVariantMap properties = plainValue(arguments.value(1)).toMap();
    const QStringList invalidated = arguments.value(2).toStringList();
    for (const QString &player : players) {
        if (!properties.isEmpty())
            Q_EMIT propertiesDidArrive(player, properties);
        const auto found = m_players.constFind(player);
        if (found == m_players.constEnd())
            continue; // a receiver of the signal may have had it removed
        const bool saysNoMore =
            invalidated.contains(metadataKey) || invalidated.contains(QStringLiteral("PlaybackStatus"));
        if (saysNoMore || found->failures > 0)
            read(player);
    }
}

void PlayerBus::seeked(const QDBusMessage &signal)
{
    bool isNumber = false;
    const qlonglong position = signal.arguments().value(0).toLongLong(&isNumber);
    if (!isNumber)
        return;
    for (const QString &player : m_playersOfOwner.values(signal.service()))
        Q_EMIT playerDidSeek(player, std::chrono::microseconds(position));
}

void PlayerBus::call(const QDBusMessage &message, ReplyHandler handler)
{
    const auto timeout = std::chrono::milliseconds(callTimeout).count();
    ++m_callsPending;
    whenReplied(m_bus.asyncCall(message, int(timeout)), this,
                [this, handler = std::move(handler)](const QDBusMessage &reply) {
                    handler(reply); // may ask the next question
                    if (--m_callsPending == 0)
                        Q_EMIT didFinishAsking();
                });
}

void PlayerBus::findOwner(const QString &player)
{
    surveyStep(+1);
    call(busCall(QStringLiteral("GetNameOwner")) << mprisPrefix + player,
         [this, player](const QDBusMessage &reply) {
             const QString owner = reply.arguments().value(0).toString();
             if (reply.type() == QDBusMessage::ReplyMessage && !m_players.contains(player))
                 addPlayer(player, owner);
             surveyStep(-1);
         });
}

void PlayerBus::addPlayer(const QString &player, const QString &owner)
{
    if (!m_isWanted(player))
        return;
    m_players.insert(player, Player{owner});
    m_playersOfOwner.insert(owner, player);
    read(player);
    readIdentity(player);
}

void PlayerBus::removePlayer(const QString &player)
{
    const auto found = m_players.constFind(player);
    if (found == m_players.constEnd())
        return;
    m_playersOfOwner.remove(found->owner, player);
    m_players.erase(found);
    Q_EMIT playerDidVanish(player);
}

void PlayerBus::read(const QString &player)
{
    Player &state = m_players[player];
    if (state.isBeingRead) {
        state.wantsReading = true;
        return;
    }
    state.isBeingRead = true;
    state.wantsReading = false;
    surveyStep(+1);
    const QDBusMessage message = playerCall(state.owner, propertiesInterface, QStringLiteral("GetAll"))
                                 << mprisPlayerInterface;
    call(message, [this, player, owner = state.owner](const QDBusMessage &reply) {
        didRead(player, owner, reply);
        surveyStep(-1);
    });
}

void PlayerBus::readIdentity(const QString &player)
{
    const QString owner = m_players.value(player).owner;
    const QDBusMessage message = playerCall(owner, propertiesInterface, QStringLiteral("GetAll"))
                                 << mprisRootInterface;
    call(message, [this, player, owner](const QDBusMessage &reply) {
        if (reply.type() != QDBusMessage::ReplyMessage || m_players.value(player).owner != owner)
            return;
        const QVariantMap properties = plainValue(reply.arguments().value(0)).toMap();
        Q_EMIT identityDidArrive(player, properties.value(QStringLiteral("Identity")).toString(),
                                 properties.value(QStringLiteral("CanRaise")).toBool());
    });
}

void PlayerBus::didRead(const QString &player, const QString &owner, const QDBusMessage &reply)
{
    const auto found = m_players.find(player);
    if (found == m_players.end() || found->owner != owner)
        return; // it quit, or another process took its name
    found->isBeingRead = false;
    if (reply.type() == QDBusMessage::ReplyMessage) {
        found->failures = 0;
        const bool readAgain = found->wantsReading;
        QVariantMap properties = plainValue(reply.arguments().value(0)).toMap();
        if (!properties.contains(metadataKey))
            properties.insert(metadataKey, QVariantMap()); // none said: none there
        Q_EMIT propertiesDidArrive(player, properties);
        if (readAgain && m_players.contains(player))
            read(player);
    } else if (++found->failures <= mostFailures) {
        QTimer::singleShot(retryDelay, this, [this, player, owner] {
            if (m_players.value(player).owner == owner)
                read(player);
        });
    }
}

void PlayerBus::surveyStep(int pendingChange)
{
    m_surveyPending += pendingChange;
    if (!m_isSurveying || m_surveyPending > 0)
        return;
    m_isSurveying = false;
    m_surveyTimer.stop();
    Q_EMIT surveyDidEnd();
}

} // namespace trackwise
