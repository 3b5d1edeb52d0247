// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/NotificationHaptics.h"
#include "platform/RecognitionSession.h"
#include "song/MediaItem.h"

#include <QString>

#include <chrono>
#include <optional>
#include <variant>
#include <vector>

namespace trackwise {

class MediaLibrary;

namespace recognition {

/// What was heard is this song of the library.
struct MatchFound
{
    MediaItem song;
};
/// It was identified, but is not in the library; the item is absent where nothing more is known of it.
struct NoSongFound
{
    std::optional<MatchedMediaItem> item;
};
struct Failed
{
    QString message; ///< for the user
};
struct Idle
{};
struct Listening
{
    bool isSilent = false; ///< nothing comes in, as from a microphone that is switched off
};
struct NoMatchFound
{};

} // namespace recognition

/// Where an attempt to recognise music stands.
using ShazamState = std::variant<recognition::MatchFound, recognition::NoSongFound, recognition::Failed,
                                 recognition::Idle, recognition::Listening, recognition::NoMatchFound>;

/// What @p items mean for who owns @p library: the song with the catalog identifier of the first item that
/// has one, else the one with title and artist of the first item that has both, else the one that the device
/// itself knows.
[[nodiscard]] ShazamState stateForMatch(const MediaLibrary &library,
                                        const std::vector<MatchedMediaItem> &items);

enum class HUDKind { Listening, MatchFound, NoResult, NotInLibrary, Error };

/// What is shown, felt and said when a state begins.
struct StateEffects
{
    HUDKind kind = HUDKind::Listening;
    std::optional<HapticNotification> haptic;
    QString topText;
    QString bottomText;
    QString announcement;                                  ///< for screen readers; may be empty
    std::optional<std::chrono::milliseconds> dismissAfter; ///< absent: it stays

    friend bool operator==(const StateEffects &, const StateEffects &) = default;
};

/// Nothing while idle.
[[nodiscard]] std::optional<StateEffects> effectsOf(const ShazamState &state);

} // namespace trackwise
