// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QObject>

#include <optional>
#include <vector>

namespace trackwise {

enum class PlaybackState { Stopped, Playing, Paused };

/// The app's own music player; one for the whole process, shared by all windows. Main thread. Commands
/// report nothing: what came of them is seen in the state.
class MusicPlayer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual std::optional<MediaItem> nowPlayingItem() const = 0;
    [[nodiscard]] virtual PlaybackState playbackState() const = 0;

    /// Replaces the queue; its first song becomes the one that prepareToPlay() loads.
    virtual void setQueue(std::vector<MediaItem> songs) = 0;
    virtual void prepareToPlay() = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void stop() = 0;
    virtual void skipToBeginning() = 0;

    /// The change signals are sent only between these two; calls nest.
    virtual void beginGeneratingPlaybackNotifications() = 0;
    virtual void endGeneratingPlaybackNotifications() = 0;

Q_SIGNALS:
    void playbackStateDidChange();
    void nowPlayingItemDidChange();
};

} // namespace trackwise
