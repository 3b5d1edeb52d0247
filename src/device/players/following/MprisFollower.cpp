// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/MprisFollower.h"

#include <algorithm>
#include <utility>

namespace trackwise {

using namespace std::chrono_literals;

namespace {

// Title, artist and picture of one track come in pieces up to some 100 ms apart; a player that never stops
// sending is listened to all the same.
constexpr std::chrono::milliseconds quietTime = 150ms;
constexpr std::chrono::milliseconds longestWait = 300ms;

FollowedPlayer::Time now()
{
    return std::chrono::steady_clock::now();
}

} // namespace

MprisFollower::MprisFollower(const QDBusConnection &bus, QString appId, QObject *parent)
    : QObject(parent)
    , m_bus(bus, [appId = std::move(appId)](const QString &player) { return isOtherPlayer(player, appId); })
{
    connect(&m_quiet, &QTimer::timeout, this, &MprisFollower::settle);
    connect(&m_bus, &PlayerBus::propertiesDidArrive, this, &MprisFollower::take);
    connect(&m_bus, &PlayerBus::playerDidSeek, this, &MprisFollower::takePosition);
    connect(&m_bus, &PlayerBus::identityDidArrive, this, &MprisFollower::takeIdentity);
    connect(&m_bus, &PlayerBus::playerDidVanish, this, &MprisFollower::remove);
    connect(&m_bus, &PlayerBus::didFinishAsking, this, &MprisFollower::didSettle);
    connect(&m_bus, &PlayerBus::surveyDidEnd, this, [this] {
        settle();
        Q_EMIT surveyDidEnd();
    });
}

std::vector<PlayerDescription> MprisFollower::players() const
{
    std::vector<PlayerDescription> descriptions;
    for (const auto &[name, player] : m_players)
        descriptions.push_back({name, player.identity.isEmpty() ? name : player.identity});
    return descriptions;
}

void MprisFollower::setIgnored(QStringList kinds)
{
    m_ignored = std::move(kinds);
    choose();
}

bool MprisFollower::raisePlayer()
{
    if (!m_current || !m_players[m_current->player].canRaise)
        return false;
    m_bus.raise(m_current->player);
    return true;
}

void MprisFollower::take(const QString &name, const QVariantMap &properties)
{
    Player &player = m_players[name];
    FollowedPlayer &state = player.state;
    const PlaybackState before = state.status();
    if (state.take(properties, now())) {
        player.wantsSettling = true;
        waitForMore();
    }
    if (state.status() != before)
        player.lastChange = ++m_changes;
}

void MprisFollower::takePosition(const QString &name, std::chrono::microseconds position)
{
    if (const auto player = m_players.find(name); player != m_players.end())
        noteIfPlayed(name, player->second.state.takePosition(position, now()));
}

void MprisFollower::takeIdentity(const QString &name, const QString &identity, bool canRaise)
{
    Player &player = m_players[name];
    player.identity = identity;
    player.canRaise = canRaise;
}

void MprisFollower::remove(const QString &name)
{
    const auto player = m_players.find(name);
    if (player == m_players.end())
        return;
    auto played = player->second.state.settle(now());
    if (!played)
        played = player->second.state.quit(now());
    m_players.erase(player);
    noteIfPlayed(name, played);
    waitForMore(); // it may be back at once, under another owner
}

void MprisFollower::waitForMore()
{
    if (!m_quiet.isActive())
        m_sinceFirstChange.start();
    const auto left = longestWait - std::chrono::milliseconds(m_sinceFirstChange.elapsed());
    m_quiet.start(std::clamp(left, 0ms, quietTime));
}

void MprisFollower::settle()
{
    m_quiet.stop();
    std::vector<std::pair<QString, TrackMetadata>> played;
    for (auto &[name, player] : m_players) {
        if (!std::exchange(player.wantsSettling, false))
            continue;
        const TrackMetadata before = player.state.track();
        if (auto track = player.state.settle(now()))
            played.emplace_back(name, std::move(*track));
        if (!isSameTrack(before, player.state.track()))
            player.lastChange = ++m_changes;
    }
    for (const auto &[name, track] : played)
        noteIfPlayed(name, track);
    choose();
    Q_EMIT didSettle();
}

void MprisFollower::choose()
{
    std::vector<PlayerFacts> facts;
    facts.reserve(m_players.size());
    for (const auto &[name, player] : m_players) {
        const TrackMetadata &track = player.state.track();
        facts.push_back({name, player.state.status(), track.isTrack(), track.title, player.lastChange});
    }
    const auto chosen = choosePlayer(facts, m_ignored);
    std::optional<CurrentTrack> current;
    if (chosen)
        current = CurrentTrack{*chosen, m_players[*chosen].state.track()};
    if (current == m_current)
        return;
    m_current = std::move(current);
    Q_EMIT currentDidChange();
}

void MprisFollower::noteIfPlayed(const QString &name, const FollowedPlayer::PlayedTrack &track)
{
    if (track && m_current && m_current->player == name)
        Q_EMIT trackWasPlayed(*track);
}

} // namespace trackwise
