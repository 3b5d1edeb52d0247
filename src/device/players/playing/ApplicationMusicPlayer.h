// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/PlaybackTally.h"
#include "device/players/playing/FilePlayback.h"
#include "platform/MusicPlayer.h"

#include <QByteArray>

#include <functional>

namespace trackwise {

/// The app's own music player on this device: a queue of library songs, played from their files. It is silent
/// about files that are missing, broken or cannot be heard for lack of an output; its state tells. Main
/// thread.
class ApplicationMusicPlayer : public MusicPlayer
{
    Q_OBJECT

public:
    using Milliseconds = std::chrono::milliseconds;
    /// Where a song's file is, in the bytes of the file system; nothing when it is gone.
    using PathOfSong = std::function<std::optional<QByteArray>(PersistentID)>;

    explicit ApplicationMusicPlayer(PathOfSong pathOfSong, QObject *parent = nullptr);

    [[nodiscard]] std::optional<MediaItem> nowPlayingItem() const override;
    [[nodiscard]] PlaybackState playbackState() const override { return m_state; }
    /// A new queue waits for prepareToPlay() or play(); until then the old song goes on.
    void setQueue(std::vector<MediaItem> songs) override;
    void prepareToPlay() override;
    void play() override;
    void pause() override;
    void stop() override;
    void skipToBeginning() override;
    void beginGeneratingPlaybackNotifications() override;
    void endGeneratingPlaybackNotifications() override;

    [[nodiscard]] bool hasNextItem() const { return m_current + 1 < m_queue.size(); }
    [[nodiscard]] bool hasPreviousItem() const { return m_current > 0 && m_current < m_queue.size(); }
    /// Both keep the state: a playing player plays the other song, a paused one stands at its beginning.
    void skipToNextItem();
    void skipToPreviousItem();

    [[nodiscard]] Milliseconds position() const { return m_playback.position(); }
    [[nodiscard]] Milliseconds duration() const; ///< of the file; before it is known, of the record
    void seek(Milliseconds position);
    [[nodiscard]] double volume() const { return m_playback.volume(); }
    void setVolume(double volume);
    /// Of the file that is loaded.
    [[nodiscard]] const std::optional<QByteArray> &nowPlayingPath() const { return m_path; }

Q_SIGNALS:
    /// Something that can be read here, other than the position, is different. Sent whether or not
    /// notifications are being generated.
    void didChange();
    /// The position jumped.
    void didSeek(std::chrono::milliseconds position);
    /// A song of the library was played to its end, or was left soon after its start.
    void songWasPlayed(trackwise::PersistentID song);
    void songWasSkipped(trackwise::PersistentID song);

private:
    void moveTo(std::size_t index);
    bool loadCurrent();
    void continueAfter(PlaybackTally::Ending ending);
    void refreshState();
    void count(PlaybackTally::Verdict verdict);

    PathOfSong m_pathOfSong;
    FilePlayback m_playback;
    PlaybackTally m_tally;
    std::vector<MediaItem> m_queue;
    std::size_t m_current = 0;
    std::optional<QByteArray> m_path;
    std::optional<std::vector<MediaItem>> m_waitingQueue;
    PlaybackState m_state = PlaybackState::Stopped;
    bool m_wantsToPlay = false; ///< what was asked for; the next song of the queue goes by it
    int m_listeners = 0;
};

} // namespace trackwise
