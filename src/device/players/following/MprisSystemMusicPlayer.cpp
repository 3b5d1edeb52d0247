// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/MprisSystemMusicPlayer.h"

#include "device/players/following/NowPlayingMatcher.h"
#include "platform/Background.h"

#include <utility>

namespace trackwise {

using namespace std::chrono_literals;

namespace {

// A file on a server that has gone can hold up one look-up for minutes; the next must not wait for it.
constexpr int mostLookUps = 3;
constexpr auto longestFirstLookUp = 800ms;
constexpr auto longestAnswer = 3s; // the question to a player, the pause after its answer, and a look-up

MediaItem lookUp(const SongMatching &library, const TrackMetadata &track)
{
    if (const auto id = NowPlayingMatcher(library).match(track)) {
        if (auto song = library.song(*id))
            return *std::move(song);
    }
    return itemFrom(track);
}

} // namespace

MprisSystemMusicPlayer::MprisSystemMusicPlayer(const SongMatching &library, const QDBusConnection &bus,
                                               const QString &appId, QObject *parent)
    : SystemMusicPlayer(parent)
    , m_library(library)
    , m_follower(bus, appId)
{
    m_workers.setMaxThreadCount(mostLookUps);
    connect(&m_follower, &MprisFollower::trackWasPlayed, this, &MprisSystemMusicPlayer::countPlay);
    connect(&m_follower, &MprisFollower::currentDidChange, this, &MprisSystemMusicPlayer::refresh);
    connect(&m_follower, &MprisFollower::surveyDidEnd, this, [this] {
        m_hasSurveyed = true;
        if (m_follower.current())
            QTimer::singleShot(longestFirstLookUp, this, &MprisSystemMusicPlayer::becomeReady);
        else
            becomeReady();
    });
    connect(&m_follower, &MprisFollower::didSettle, this, &MprisSystemMusicPlayer::tellIfAnswered);
    m_answerLimit.setSingleShot(true);
    connect(&m_answerLimit, &QTimer::timeout, this, &MprisSystemMusicPlayer::tellAnswer);
    m_follower.start();
}

void MprisSystemMusicPlayer::beginGeneratingPlaybackNotifications()
{
    ++m_listeners;
}

void MprisSystemMusicPlayer::endGeneratingPlaybackNotifications()
{
    if (m_listeners > 0)
        --m_listeners;
}

void MprisSystemMusicPlayer::whenReady(std::function<void()> handler)
{
    if (m_isReady)
        handler();
    else
        m_waitingForReady.push_back(std::move(handler));
}

void MprisSystemMusicPlayer::whenAnswered(AnswerHandler handler)
{
    if (!isAnswerAwaited()) {
        handler(m_item);
        return;
    }
    m_waitingForAnswer.push_back(std::move(handler));
    if (!m_answerLimit.isActive())
        m_answerLimit.start(longestAnswer);
}

bool MprisSystemMusicPlayer::isAnswerAwaited() const
{
    return !m_item && (m_isLookingUp || m_follower.isUnsettled());
}

void MprisSystemMusicPlayer::tellIfAnswered()
{
    if (!isAnswerAwaited())
        tellAnswer();
}

void MprisSystemMusicPlayer::tellAnswer()
{
    m_answerLimit.stop();
    for (const AnswerHandler &handler : std::exchange(m_waitingForAnswer, {}))
        handler(m_item);
}

void MprisSystemMusicPlayer::refresh()
{
    const auto request = ++m_latestLookUp;
    m_isLookingUp = m_follower.current().has_value();
    if (!m_isLookingUp) {
        show(std::nullopt);
        return;
    }
    runInBackground(
        m_workers, this,
        [&library = m_library, track = m_follower.current()->track] { return lookUp(library, track); },
        [this, request](MediaItem item) {
            if (request != m_latestLookUp)
                return; // the track has changed meanwhile
            m_isLookingUp = false;
            show(std::move(item));
        });
}

void MprisSystemMusicPlayer::show(std::optional<MediaItem> item)
{
    const bool isSame = item.has_value() == m_item.has_value() && (!item || isSameSong(*item, *m_item));
    m_item = std::move(item);
    if (m_hasSurveyed)
        becomeReady();
    if (!isSame && m_listeners > 0)
        Q_EMIT nowPlayingItemDidChange();
    tellIfAnswered();
}

void MprisSystemMusicPlayer::becomeReady()
{
    m_isReady = true;
    for (const auto &handler : std::exchange(m_waitingForReady, {}))
        handler();
}

void MprisSystemMusicPlayer::countPlay(const TrackMetadata &track)
{
    runInBackground(
        m_workers, this, [&library = m_library, track] { return NowPlayingMatcher(library).match(track); },
        [this](std::optional<PersistentID> song) {
            if (song)
                Q_EMIT songWasPlayed(*song);
        });
}

} // namespace trackwise
