// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace trackwise {

/// Decides whether a song that was listened to counts as played or as skipped, once each time it was on.
/// It is told what a player reports and when; it has no clock and no player of its own. A song is played
/// when its end is reached after at least half of it was heard; it is skipped when it is left after 2 s of
/// listening and within its first 20 s.
class PlaybackTally
{
public:
    using Milliseconds = std::chrono::milliseconds;
    using Time = std::chrono::steady_clock::time_point;

    enum class Verdict { Neither, Played, Skipped };
    enum class Ending {
        ReachedEnd, ///< the player said that the song is over
        Left,       ///< stopped or changed; whether that was at the end is judged by the position
    };

    /// A song is on, standing still at @p position. What lies before it counts as heard: it was before we
    /// looked. @p length zero: unknown.
    void begin(Milliseconds length, Milliseconds position, Time now);
    /// A length that became known, or better known, while the song is on.
    void setLength(Milliseconds length);
    /// Time moves on by @p rate seconds of the song in a second; 0 while it stands still.
    void setRate(double rate, Time now);
    /// The position is @p position now: a jump, or a correction. A jump from the end to the start ends the
    /// song and begins it again, as a repeated song does.
    Verdict moveTo(Milliseconds position, Time now);
    /// The song is over. Nothing is counted again until the next begin().
    Verdict finish(Ending ending, Time now);

    [[nodiscard]] bool isOn() const { return m_isOn; }

private:
    void advance(Time now);
    [[nodiscard]] bool isAtEnd() const;
    [[nodiscard]] bool heardEnough() const;

    bool m_isOn = false;
    double m_rate = 0;
    Milliseconds m_length{0};
    Milliseconds m_position{0};
    Milliseconds m_heard{0};
    Time m_reckoned; ///< m_position and m_heard are those of this moment
};

} // namespace trackwise
