// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/PlayerChoice.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace trackwise {

namespace {

const QString browserIntegration = QStringLiteral("plasma-browser-integration");

bool isBrowser(const QString &player)
{
    constexpr std::array browsers{
        "firefox", "librewolf", "chromium", "chrome", "google-chrome",  "brave",     "vivaldi",
        "opera",   "epiphany",  "falkon",   "edge",   "microsoft-edge", "angelfish", "org.gnome.Epiphany"};
    const QString kind = playerKind(player);
    return kind == browserIntegration ||
           std::any_of(browsers.begin(), browsers.end(), [&kind](const char *browser) {
               return kind.compare(QLatin1String(browser), Qt::CaseInsensitive) == 0;
           });
}

/// Whether the desktop's browser integration shows the same track under its own name.
bool isShownByIntegration(const PlayerFacts &candidate, const std::vector<PlayerFacts> &players)
{
    return isBrowser(candidate.player) && playerKind(candidate.player) != browserIntegration &&
           std::any_of(players.begin(), players.end(), [&candidate](const PlayerFacts &other) {
               return playerKind(other.player) == browserIntegration && other.title == candidate.title;
           });
}

bool hasSong(const PlayerFacts &facts)
{
    return facts.status != PlaybackState::Stopped && facts.hasTrack;
}

/// The players of a connected phone are another device's.
bool isIgnored(const QString &player, const QStringList &ignored)
{
    const QString kind = playerKind(player);
    return kind == QLatin1String("kdeconnect") || kind.startsWith(QLatin1String("kdeconnect.")) ||
           ignored.contains(kind);
}

} // namespace

QString playerKind(const QString &player)
{
    const qsizetype instance = player.indexOf(QLatin1String(".instance"));
    return instance < 0 ? player : player.left(instance);
}

bool isOtherPlayer(const QString &player, const QString &appId)
{
    const QString kind = playerKind(player);
    return kind != appId && kind != QLatin1String("playerctld");
}

std::optional<QString> choosePlayer(const std::vector<PlayerFacts> &players, const QStringList &ignored)
{
    const auto rank = [](const PlayerFacts &facts) {
        return std::tuple(facts.status == PlaybackState::Playing, !isBrowser(facts.player), facts.lastChange);
    };
    const PlayerFacts *best = nullptr;
    for (const PlayerFacts &facts : players) {
        if (!hasSong(facts) || isIgnored(facts.player, ignored) || isShownByIntegration(facts, players))
            continue;
        if (!best || rank(facts) > rank(*best))
            best = &facts;
    }
    return best ? std::optional(best->player) : std::nullopt;
}

} // namespace trackwise
