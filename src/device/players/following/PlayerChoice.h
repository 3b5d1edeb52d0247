// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/MusicPlayer.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace trackwise {

/// What the choice among players goes by.
struct PlayerFacts
{
    QString player; ///< name without "org.mpris.MediaPlayer2."
    PlaybackState status = PlaybackState::Stopped;
    bool hasTrack = false;
    QString title;
    std::uint64_t lastChange = 0; ///< greater: its status or track changed later
};

/// "vlc" of "vlc.instance4711" and of "vlc": what settings name a player by.
[[nodiscard]] QString playerKind(const QString &player);

/// Whether the player is another one: not this app under any of its names, not a stand-in that mirrors what
/// other players say.
[[nodiscard]] bool isOtherPlayer(const QString &player, const QString &appId);

/// The player whose track is the one that plays now: one that plays before one that pauses, music players
/// before browsers, the last to change first. Stopped players, those without a track and those of the @p
/// ignored kinds are never it.
[[nodiscard]] std::optional<QString> choosePlayer(const std::vector<PlayerFacts> &players,
                                                  const QStringList &ignored);

} // namespace trackwise
