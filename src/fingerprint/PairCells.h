// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Peak.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace trackwise::fingerprint {

/// Two peaks that follow one another closely, where they stand on the scales of cells; between cells too.
struct PeakPair
{
    float first = 0;  ///< the earlier one's pitch, see pitchScale()
    float second = 0; ///< the later one's
    float delay = 0;  ///< frames (16 ms) from one to the other
};

/// A pair as it is looked up: both pitches and the delay, rounded.
using Cell = std::uint32_t;
inline constexpr int pitchCells = 288;
inline constexpr int delayCells = 34;
inline constexpr Cell cellCount = Cell(pitchCells) * pitchCells * delayCells;

/// From peaks that are nearer the ear learns little about the song, and what is further apart goes apart when
/// the song is played at another speed.
inline constexpr float shortestDelay = 1.875F; ///< frames: 30 ms
inline constexpr float longestDelay = 31.25F;  ///< frames: 0.5 s

/// The place of @p bin on the scale of pitch cells. These are 10 Hz wide at the lower end, which is how
/// exactly a bin's middle is known, and widen towards 0.6 % of the frequency, which is how far off a player's
/// speed may be.
float pitchScale(float bin);

/// The cell that @p pair lies in; nothing outside of the scales.
std::optional<Cell> cellOf(const PeakPair &pair);
/// Calls @p take with the cells around @p pair, two on each scale, those that lie on the scales: one of them
/// is where a song's pair is that was rounded the other way.
template <typename Take>
void forEachCellAround(const PeakPair &pair, Take &&take)
{
    // The one below, and the one above it. No place is further below a scale than 1 here.
    const auto below = [](float place) { return int(std::max(place, -1.0F) + 1) - 1; };
    const int firsts = below(pair.first);
    const int seconds = below(pair.second);
    const int delays = below(pair.delay);
    for (int first = std::max(firsts, 0); first <= std::min(firsts + 1, pitchCells - 1); ++first) {
        for (int second = std::max(seconds, 0); second <= std::min(seconds + 1, pitchCells - 1); ++second) {
            for (int delay = std::max(delays, 0); delay <= std::min(delays + 1, delayCells - 1); ++delay)
                take((Cell(first) * pitchCells + Cell(second)) * delayCells + Cell(delay));
        }
    }
}

/// Calls @p take with the place in @p peaks of each that follows the one at @p first within the delay of a
/// pair. The peaks are in the order of a PeakExtractor; @p slack widens the delays at both ends, in frames.
template <typename Take>
void forEachPartner(std::span<const Peak> peaks, std::size_t first, float slack, Take &&take)
{
    for (std::size_t second = first + 1; second < peaks.size(); ++second) {
        const float delay = peaks[second].time - peaks[first].time;
        if (delay > longestDelay + slack)
            return;
        if (delay >= shortestDelay - slack)
            take(second);
    }
}

/// A pair of a song's peaks: its cell and when it begins, in frames.
struct SongPair
{
    Cell cell = 0;
    float time = 0;
};

/// How many pairs are looked up of a song: with how many others two peaks make them. More than four times the
/// peaks no index can hold. Compact, it takes half of that; of what is heard 1 to 2 % more stays unknown.
enum class PairDensity : std::uint32_t { Full = 8, Compact = 3 };

/// What is looked up of a song: each peak with its strongest partners, which are the likeliest to be heard
/// again. A query tries all pairs.
std::vector<SongPair> pairsOfSong(std::span<const Peak> peaks, PairDensity density = PairDensity::Full);

} // namespace trackwise::fingerprint
