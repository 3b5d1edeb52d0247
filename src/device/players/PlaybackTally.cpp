// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/PlaybackTally.h"

#include <algorithm>

namespace trackwise {

using namespace std::chrono_literals;

namespace {
constexpr auto skipFrom = 2s;
constexpr auto skipUntil = 20s;
// Players report what they decode, ahead of what is heard, and fade into the next song; short pieces allow a
// fifth of their length.
constexpr std::chrono::milliseconds endTolerance = 5s;
constexpr auto startOfSong = 2s;
} // namespace

void PlaybackTally::begin(Milliseconds length, Milliseconds position, Time now)
{
    m_isOn = true;
    m_rate = 0;
    m_length = std::max(length, 0ms);
    m_position = std::max(position, 0ms);
    m_heard = m_position;
    m_reckoned = now;
}

void PlaybackTally::setLength(Milliseconds length)
{
    m_length = std::max(length, 0ms);
}

void PlaybackTally::setRate(double rate, Time now)
{
    advance(now);
    m_rate = std::max(rate, 0.0);
}

PlaybackTally::Verdict PlaybackTally::moveTo(Milliseconds position, Time now)
{
    if (!m_isOn)
        return Verdict::Neither;
    advance(now);
    const double rate = m_rate;
    if (isAtEnd() && heardEnough() && position <= startOfSong && position < m_length / 2) {
        begin(m_length, 0ms, now);
        m_rate = rate;
        m_position = position;
        return Verdict::Played;
    }
    m_position = std::max(position, 0ms);
    return Verdict::Neither;
}

PlaybackTally::Verdict PlaybackTally::finish(Ending ending, Time now)
{
    if (!m_isOn)
        return Verdict::Neither;
    advance(now);
    m_isOn = false;
    m_rate = 0;
    if (ending == Ending::ReachedEnd || isAtEnd())
        return heardEnough() ? Verdict::Played : Verdict::Neither;
    return m_heard >= skipFrom && m_position <= skipUntil ? Verdict::Skipped : Verdict::Neither;
}

void PlaybackTally::advance(Time now)
{
    const auto elapsed = std::chrono::duration<double, std::milli>(std::max(now, m_reckoned) - m_reckoned);
    auto moved = std::chrono::round<Milliseconds>(elapsed * m_rate);
    if (m_length > 0ms)
        moved = std::clamp(moved, 0ms, std::max(m_length - m_position, 0ms));
    m_position += moved;
    m_heard += moved;
    m_reckoned = std::max(now, m_reckoned);
}

bool PlaybackTally::isAtEnd() const
{
    return m_length > 0ms && m_position >= m_length - std::min(endTolerance, m_length / 5);
}

bool PlaybackTally::heardEnough() const
{
    return m_heard >= m_length / 2;
}

} // namespace trackwise
