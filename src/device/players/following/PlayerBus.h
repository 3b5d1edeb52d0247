// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>
#include <QVariantMap>

#include <chrono>
#include <functional>

namespace trackwise {

/// The media players on the session bus, as raw properties: finds them, reads each once, then listens, and
/// reads again when one says no more than that something is different. Players are named by what follows
/// "org.mpris.MediaPlayer2." in their bus name. Every call is asynchronous and starts no player; a player
/// that does not answer is asked again a few times and otherwise left alone. Main thread.
class PlayerBus : public QObject
{
    Q_OBJECT

public:
    /// Decides by name whether a player is looked at. Asked once for each.
    using Filter = std::function<bool(const QString &player)>;

    PlayerBus(const QDBusConnection &bus, Filter isWanted, QObject *parent = nullptr);

    /// Looks for players; surveyDidEnd() follows, at once without a bus.
    void start();
    /// Whether there are questions under way. Each is answered, or given up after two seconds.
    [[nodiscard]] bool isAsking() const { return m_callsPending > 0; }
    /// Asks the player to show its window.
    void raise(const QString &player);

Q_SIGNALS:
    /// Of the interface org.mpris.MediaPlayer2.Player; all of them after a read, else those that changed.
    void propertiesDidArrive(const QString &player, const QVariantMap &properties);
    /// The names under which the player is known to people; sent once.
    void identityDidArrive(const QString &player, const QString &identity, bool canRaise);
    void playerDidSeek(const QString &player, std::chrono::microseconds position);
    void playerDidVanish(const QString &player);
    /// All players that were there have been heard, or enough time has passed.
    void surveyDidEnd();
    /// The last question that was under way has been answered, or given up.
    void didFinishAsking();

private Q_SLOTS:
    void ownerDidChange(const QString &name, const QString &oldOwner, const QString &newOwner);
    void propertiesDidChange(const QDBusMessage &signal);
    void seeked(const QDBusMessage &signal);

private:
    using ReplyHandler = std::function<void(const QDBusMessage &)>;
    struct Player
    {
        QString owner; ///< unique name on the bus
        int failures = 0;
        bool isBeingRead = false;
        bool wantsReading = false; ///< once more, after the reading under way
    };

    void call(const QDBusMessage &message, ReplyHandler handler);
    void findOwner(const QString &player);
    void addPlayer(const QString &player, const QString &owner);
    void removePlayer(const QString &player);
    void read(const QString &player);
    void readIdentity(const QString &player);
    void didRead(const QString &player, const QString &owner, const QDBusMessage &reply);
    void surveyStep(int pendingChange);

    QDBusConnection m_bus;
    Filter m_isWanted;
    QHash<QString, Player> m_players;
    QMultiHash<QString, QString> m_playersOfOwner;
    QTimer m_surveyTimer;
    int m_surveyTicksGone = 0;
    int m_surveyPending = 0;
    int m_callsPending = 0;
    bool m_isSurveying = false;
};

} // namespace trackwise
