// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/playing/ApplicationMusicPlayer.h"

#include <utility>

namespace trackwise {

namespace {

PlaybackTally::Time now()
{
    return std::chrono::steady_clock::now();
}

} // namespace

ApplicationMusicPlayer::ApplicationMusicPlayer(PathOfSong pathOfSong, QObject *parent)
    : MusicPlayer(parent)
    , m_pathOfSong(std::move(pathOfSong))
{
    connect(&m_playback, &FilePlayback::stateDidChange, this, &ApplicationMusicPlayer::refreshState);
    connect(&m_playback, &FilePlayback::durationDidChange, this, &ApplicationMusicPlayer::didChange);
    connect(&m_playback, &FilePlayback::didReachEnd, this,
            [this] { continueAfter(PlaybackTally::Ending::ReachedEnd); });
    connect(&m_playback, &FilePlayback::didFail, this,
            [this] { continueAfter(PlaybackTally::Ending::Left); });
}

std::optional<MediaItem> ApplicationMusicPlayer::nowPlayingItem() const
{
    return m_current < m_queue.size() ? std::optional(m_queue[m_current]) : std::nullopt;
}

void ApplicationMusicPlayer::setQueue(std::vector<MediaItem> songs)
{
    m_waitingQueue = std::move(songs);
}

void ApplicationMusicPlayer::prepareToPlay()
{
    if (m_waitingQueue) {
        count(m_tally.finish(PlaybackTally::Ending::Left, now()));
        m_queue = *std::exchange(m_waitingQueue, std::nullopt);
        moveTo(0);
    } else if (!m_playback.isLoaded()) {
        loadCurrent();
    }
}

void ApplicationMusicPlayer::play()
{
    if (m_waitingQueue || !m_playback.isLoaded())
        prepareToPlay();
    m_wantsToPlay = m_playback.isLoaded();
    if (!m_wantsToPlay)
        return;
    if (!m_tally.isOn())
        m_tally.begin(duration(), position(), now());
    m_playback.play();
    refreshState();
}

void ApplicationMusicPlayer::pause()
{
    m_wantsToPlay = false;
    m_playback.pause();
}

void ApplicationMusicPlayer::stop()
{
    m_wantsToPlay = false;
    count(m_tally.finish(PlaybackTally::Ending::Left, now()));
    m_playback.stop();
}

void ApplicationMusicPlayer::skipToBeginning()
{
    seek(Milliseconds(0));
}

void ApplicationMusicPlayer::beginGeneratingPlaybackNotifications()
{
    ++m_listeners;
}

void ApplicationMusicPlayer::endGeneratingPlaybackNotifications()
{
    if (m_listeners > 0)
        --m_listeners;
}

void ApplicationMusicPlayer::skipToNextItem()
{
    if (!hasNextItem())
        return stop();
    moveTo(m_current + 1);
}

void ApplicationMusicPlayer::skipToPreviousItem()
{
    if (!hasPreviousItem())
        return skipToBeginning();
    moveTo(m_current - 1);
}

ApplicationMusicPlayer::Milliseconds ApplicationMusicPlayer::duration() const
{
    if (const Milliseconds ofFile = m_playback.duration(); ofFile.count() > 0)
        return ofFile;
    const auto item = nowPlayingItem();
    return item ? std::chrono::round<Milliseconds>(std::chrono::duration<double>(item->playbackDuration))
                : Milliseconds(0);
}

void ApplicationMusicPlayer::seek(Milliseconds position)
{
    if (m_state == PlaybackState::Stopped)
        return; // it stands at the beginning
    m_playback.seek(position);
    count(m_tally.moveTo(position, now()));
    Q_EMIT didSeek(position);
}

void ApplicationMusicPlayer::setVolume(double volume)
{
    m_playback.setVolume(volume);
    Q_EMIT didChange();
}

/// Makes the song at @p index of the queue the current one, or the next after it whose file can be opened.
void ApplicationMusicPlayer::moveTo(std::size_t index)
{
    count(m_tally.finish(PlaybackTally::Ending::Left, now()));
    m_current = index;
    while (!loadCurrent() && hasNextItem())
        ++m_current;
    if (m_wantsToPlay && m_playback.isLoaded()) {
        m_tally.begin(duration(), Milliseconds(0), now());
        m_playback.play();
    }
    refreshState();
    Q_EMIT didChange();
    if (m_listeners > 0)
        Q_EMIT nowPlayingItemDidChange();
}

bool ApplicationMusicPlayer::loadCurrent()
{
    m_playback.unload();
    const auto item = nowPlayingItem();
    m_path = item ? m_pathOfSong(item->persistentID) : std::nullopt;
    return m_path && m_playback.load(*m_path);
}

void ApplicationMusicPlayer::continueAfter(PlaybackTally::Ending ending)
{
    const auto verdict = m_tally.finish(ending, now());
    if (ending == PlaybackTally::Ending::ReachedEnd)
        count(verdict); // a file that cannot be read was not skipped by anybody
    if (hasNextItem())
        return moveTo(m_current + 1);
    m_wantsToPlay = false;
    refreshState();
}

void ApplicationMusicPlayer::refreshState()
{
    const PlaybackState state = m_playback.state();
    m_tally.setRate(state == PlaybackState::Playing ? 1 : 0, now());
    if (state == PlaybackState::Paused)
        m_wantsToPlay = false; // by whomever: the output may be gone
    if (state == m_state)
        return;
    m_state = state;
    Q_EMIT didChange();
    if (m_listeners > 0)
        Q_EMIT playbackStateDidChange();
}

void ApplicationMusicPlayer::count(PlaybackTally::Verdict verdict)
{
    const auto item = nowPlayingItem();
    if (!item || !item->persistentID.isInLibrary())
        return;
    if (verdict == PlaybackTally::Verdict::Played)
        Q_EMIT songWasPlayed(item->persistentID);
    else if (verdict == PlaybackTally::Verdict::Skipped)
        Q_EMIT songWasSkipped(item->persistentID);
}

} // namespace trackwise
