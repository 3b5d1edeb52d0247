// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/PlaybackTally.h"
#include "device/players/following/TrackMetadata.h"
#include "platform/MusicPlayer.h"

#include <QVariantMap>

#include <optional>

namespace trackwise {

/// What is known of one player on the bus, and how much of its track was heard. Properties are taken as they
/// arrive, in any number of pieces, and understood when settle() is called. The times passed in never run
/// back.
class FollowedPlayer
{
public:
    using Time = PlaybackTally::Time;
    /// The track that was just played to its end, if one was.
    using PlayedTrack = std::optional<TrackMetadata>;

    [[nodiscard]] const TrackMetadata &track() const { return m_track; }
    [[nodiscard]] PlaybackState status() const { return m_status; }

    /// True when there is something to settle.
    bool take(const QVariantMap &properties, Time now);
    PlayedTrack takePosition(std::chrono::microseconds position, Time now);
    PlayedTrack settle(Time now);
    PlayedTrack quit(Time now);

private:
    struct ReportedPosition
    {
        std::chrono::milliseconds position;
        Time at;
    };

    [[nodiscard]] double rate() const { return m_status == PlaybackState::Playing ? m_speed : 0; }
    PlayedTrack playedIf(PlaybackTally::Verdict verdict) const;
    PlayedTrack changeTrack(TrackMetadata track);
    void begin(Time time);

    QVariantMap m_metadata;                     ///< as it arrived
    std::optional<Time> m_metadataChanged;      ///< since when it waits to be understood
    std::optional<ReportedPosition> m_reported; ///< meanwhile
    std::optional<Time> m_stopped;              ///< since when the end of the track waits to be judged
    TrackMetadata m_track;
    PlaybackState m_status = PlaybackState::Stopped;
    double m_speed = 1;
    PlaybackTally m_tally;
};

} // namespace trackwise
