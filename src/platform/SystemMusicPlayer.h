// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QObject>

#include <functional>
#include <optional>

namespace trackwise {

/// Whatever player the device is playing music with, other than our own. Main thread.
class SystemMusicPlayer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    using AnswerHandler = std::function<void(const std::optional<MediaItem> &nowPlayingItem)>;

    /// The library's record of what is playing, or one with persistent identifier 0 and what the player
    /// says when the library does not have the song. Nothing when no player has a song.
    [[nodiscard]] virtual std::optional<MediaItem> nowPlayingItem() const = 0;

    /// Calls @p handler once nowPlayingItem() tells what is playing: at once, or soon after the start.
    /// Not called when the player goes first.
    virtual void whenReady(std::function<void()> handler) = 0;

    /// Calls @p handler with nowPlayingItem() as the players answer somebody who asks now: at once where
    /// there is a song or nobody is being asked, else when those that are have answered or been waited for in
    /// vain, which takes some seconds at most. Not called when the player goes first.
    virtual void whenAnswered(AnswerHandler handler) = 0;

    /// The change signal is sent only between these two; calls nest.
    virtual void beginGeneratingPlaybackNotifications() = 0;
    virtual void endGeneratingPlaybackNotifications() = 0;

Q_SIGNALS:
    void nowPlayingItemDidChange();
};

} // namespace trackwise
