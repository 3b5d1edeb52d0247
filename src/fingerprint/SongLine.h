// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Row.h"

#include <cstdint>
#include <limits>

namespace trackwise::fingerprint {

/// Which song of an index: the number of songs that were added before it.
using SongNumber = std::uint32_t;

/// The songs of an index stand one behind the other on one line, with gaps between them; a place on it is
/// both a song and a time. The unit is 64 ms, of which 32 bits hold nine years.
using LinePlace = std::uint32_t;
inline constexpr int framesPerPlace = 4;

/// The line before and behind each song. What one hears may begin before the song does, and end behind it: by
/// half of the longest query at most, as places are counted from its middle.
inline constexpr LinePlace lineMargin = LinePlace(8 * framesPerSecond / framesPerPlace);

/// Times before a place are counted with wrapping numbers: the end of a line is kept from its beginning.
inline constexpr LinePlace longestLine = std::numeric_limits<LinePlace>::max() / 2;

/// A peak of a song as it is kept, to compare what is heard with: whole frames and bins are exact enough for
/// that.
struct KeptPeak
{
    std::uint32_t frame : 23; ///< 37 hours of them
    std::uint32_t bin : 9;
    friend bool operator==(const KeptPeak &, const KeptPeak &) = default;
};
inline constexpr std::uint32_t lastFrame = (1U << 23) - 1;

/// A time in a song.
struct SongTime
{
    SongNumber song = 0;
    float frame = 0;
    friend bool operator==(const SongTime &, const SongTime &) = default;
};

} // namespace trackwise::fingerprint
