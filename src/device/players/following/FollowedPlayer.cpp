// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/FollowedPlayer.h"

#include "device/bus/PlainValue.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace trackwise {

using std::chrono::microseconds;
using std::chrono::milliseconds;

namespace {

constexpr double fastest = 100;

PlaybackState statusOf(const QString &text)
{
    if (text.compare(QLatin1String("Playing"), Qt::CaseInsensitive) == 0)
        return PlaybackState::Playing;
    return text.compare(QLatin1String("Paused"), Qt::CaseInsensitive) == 0 ? PlaybackState::Paused
                                                                           : PlaybackState::Stopped;
}

milliseconds positionOf(microseconds position)
{
    constexpr microseconds latest = std::chrono::hours(24 * 365);
    return std::chrono::duration_cast<milliseconds>(std::clamp(position, microseconds(0), latest));
}

} // namespace

bool FollowedPlayer::take(const QVariantMap &properties, Time now)
{
    const auto said = [&properties](const char *name) -> std::optional<QVariant> {
        const auto found = properties.constFind(QLatin1StringView(name));
        return found != properties.constEnd() ? std::optional(plainValue(*found)) : std::nullopt;
    };
    bool isChanged = false;
    if (const auto metadata = said("Metadata"); metadata && metadata->toMap() != m_metadata) {
        m_metadata = metadata->toMap();
        m_metadataChanged = m_metadataChanged.value_or(now);
        isChanged = true;
    }
    if (const auto speed = said("Rate"))
        m_speed = std::fmin(std::fmax(speed->toDouble(), 0), fastest); // NaN counts as 0
    if (const auto status = said("PlaybackStatus"); status && statusOf(status->toString()) != m_status) {
        m_status = statusOf(status->toString());
        m_stopped = m_status == PlaybackState::Stopped ? std::optional(now) : std::nullopt;
        isChanged = true;
    }
    m_tally.setRate(rate(), now);
    // Of a read. A jump back to the start found this way is no repetition: only signals are timely.
    if (const auto position = said("Position"); position && (m_metadataChanged || !m_tally.isOn()))
        m_reported = ReportedPosition{positionOf(microseconds(position->toLongLong())), now};
    return isChanged;
}

FollowedPlayer::PlayedTrack FollowedPlayer::takePosition(microseconds position, Time now)
{
    if (m_metadataChanged) {
        m_reported = ReportedPosition{positionOf(position), now};
        return std::nullopt;
    }
    return playedIf(m_tally.moveTo(positionOf(position), now));
}

FollowedPlayer::PlayedTrack FollowedPlayer::settle(Time now)
{
    PlayedTrack played;
    if (m_metadataChanged) {
        TrackMetadata track = metadataFrom(m_metadata);
        if (isSameTrack(track, m_track)) {
            m_track = std::move(track);
            m_tally.setLength(m_track.length);
            if (m_reported)
                played = playedIf(m_tally.moveTo(m_reported->position, m_reported->at));
        } else {
            played = changeTrack(std::move(track));
        }
    }
    if (m_stopped) {
        if (!played)
            played = playedIf(m_tally.finish(PlaybackTally::Ending::Left, *m_stopped));
    } else if (!m_tally.isOn() && m_track.isTrack()) {
        begin(now);
    }
    m_metadataChanged.reset();
    m_reported.reset();
    m_stopped.reset();
    return played;
}

FollowedPlayer::PlayedTrack FollowedPlayer::quit(Time now)
{
    return playedIf(m_tally.finish(PlaybackTally::Ending::Left, now));
}

FollowedPlayer::PlayedTrack FollowedPlayer::changeTrack(TrackMetadata track)
{
    const Time changed = m_stopped ? std::min(*m_metadataChanged, *m_stopped) : *m_metadataChanged;
    const PlayedTrack played = playedIf(m_tally.finish(PlaybackTally::Ending::Left, changed));
    m_track = std::move(track);
    if (m_track.isTrack() && m_status != PlaybackState::Stopped)
        begin(changed);
    return played;
}

/// A track is on since @p time, at its beginning, unless the player has said where it stood at which time.
void FollowedPlayer::begin(Time time)
{
    const ReportedPosition start = m_reported.value_or(ReportedPosition{milliseconds(0), time});
    m_tally.begin(m_track.length, start.position, start.at);
    m_tally.setRate(rate(), start.at);
}

FollowedPlayer::PlayedTrack FollowedPlayer::playedIf(PlaybackTally::Verdict verdict) const
{
    return verdict == PlaybackTally::Verdict::Played ? PlayedTrack(m_track) : std::nullopt;
}

} // namespace trackwise
