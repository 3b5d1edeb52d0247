// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/following/FollowedPlayer.h"
#include "device/players/following/PlayerBus.h"
#include "device/players/following/PlayerChoice.h"

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <map>
#include <optional>
#include <vector>

namespace trackwise {

/// The track that plays now on this device, and where.
struct CurrentTrack
{
    QString player;
    TrackMetadata track;

    friend bool operator==(const CurrentTrack &, const CurrentTrack &) = default;
};

/// A player as people choose or ignore it.
struct PlayerDescription
{
    QString player;
    QString identity; ///< its own name for people; its bus name where it gives none
};

/// Follows the other players on the session bus (MPRIS): which one counts, and what it plays. Changes are
/// collected for a moment, for players tell of a new track in several pieces. Main thread.
class MprisFollower : public QObject
{
    Q_OBJECT

public:
    /// @p appId names our own players on the bus, which are not followed.
    MprisFollower(const QDBusConnection &bus, QString appId, QObject *parent = nullptr);

    /// Looks for players; surveyDidEnd() follows within a second.
    void start() { m_bus.start(); }

    [[nodiscard]] const std::optional<CurrentTrack> &current() const { return m_current; }
    /// Whether current() may be about to change, since players are being asked or have just answered.
    [[nodiscard]] bool isUnsettled() const { return m_bus.isAsking() || m_quiet.isActive(); }
    [[nodiscard]] std::vector<PlayerDescription> players() const;
    /// Kinds of players (see playerKind()) that are not followed.
    void setIgnored(QStringList kinds);
    /// Asks the player of the current track to show itself. False when there is none, or it says it cannot.
    bool raisePlayer();

Q_SIGNALS:
    void currentDidChange();
    /// Perhaps isUnsettled() no more; after currentDidChange().
    void didSettle();
    /// The current track was played to its end.
    void trackWasPlayed(const trackwise::TrackMetadata &track);
    /// The players that were there at the start are known, and so is the current track.
    void surveyDidEnd();

private:
    struct Player
    {
        FollowedPlayer state;
        QString identity;
        bool canRaise = false;
        std::uint64_t lastChange = 0;
        bool wantsSettling = false;
    };

    void take(const QString &name, const QVariantMap &properties);
    void takePosition(const QString &name, std::chrono::microseconds position);
    void takeIdentity(const QString &name, const QString &identity, bool canRaise);
    void remove(const QString &name);
    void waitForMore();
    void settle();
    void choose();
    void noteIfPlayed(const QString &name, const FollowedPlayer::PlayedTrack &track);

    PlayerBus m_bus;
    QStringList m_ignored;
    std::map<QString, Player> m_players;
    std::optional<CurrentTrack> m_current;
    std::uint64_t m_changes = 0;
    QTimer m_quiet;
    QElapsedTimer m_sinceFirstChange;
};

} // namespace trackwise
