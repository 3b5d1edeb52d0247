// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/MusicPlayer.h"

#include <QStringList>

#include <utility>

namespace trackwise {

/// A player in memory that does what it is told and keeps a list of the commands. As the real one, it loads
/// the queue's first song when it is prepared, and tells of changes only once it has been asked to.
class MusicPlayerDouble : public MusicPlayer
{
public:
    using MusicPlayer::MusicPlayer;

    [[nodiscard]] std::optional<MediaItem> nowPlayingItem() const override { return m_item; }
    [[nodiscard]] PlaybackState playbackState() const override { return m_state; }

    void setQueue(std::vector<MediaItem> songs) override
    {
        QStringList titles;
        for (const MediaItem &song : songs)
            titles << song.title.value_or(QString());
        commands << QStringLiteral("setQueue(%1)").arg(titles.join(u','));
        m_queue = std::move(songs);
    }
    void prepareToPlay() override
    {
        commands << QStringLiteral("prepareToPlay");
        setItem(m_queue.empty() ? std::nullopt : std::optional(m_queue.front()));
    }
    void play() override
    {
        commands << QStringLiteral("play");
        setState(m_item ? PlaybackState::Playing : PlaybackState::Stopped);
    }
    void pause() override
    {
        commands << QStringLiteral("pause");
        setState(PlaybackState::Paused);
    }
    void stop() override
    {
        commands << QStringLiteral("stop");
        setState(PlaybackState::Stopped);
    }
    void skipToBeginning() override { commands << QStringLiteral("skipToBeginning"); }

    void beginGeneratingPlaybackNotifications() override { ++listeners; }
    void endGeneratingPlaybackNotifications() override { --listeners; }

    /// What somebody else (another window, a media key) makes the player do.
    void setItem(std::optional<MediaItem> item)
    {
        m_item = std::move(item);
        if (listeners > 0)
            Q_EMIT nowPlayingItemDidChange();
    }
    void setState(PlaybackState state)
    {
        if (std::exchange(m_state, state) != state && listeners > 0)
            Q_EMIT playbackStateDidChange();
    }

    QStringList commands;
    int listeners = 0;

private:
    std::vector<MediaItem> m_queue;
    std::optional<MediaItem> m_item;
    PlaybackState m_state = PlaybackState::Stopped;
};

} // namespace trackwise
