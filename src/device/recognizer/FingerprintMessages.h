// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Peak.h"

#include <cstdint>
#include <type_traits>
#include <vector>

/// What goes between the program and the processes that listen to files for it. Both ends are the same
/// program on the same machine, so values go as they stand in memory.
namespace trackwise {

/// What was heard of a file.
struct HeardSong
{
    float seconds = 0;
    std::vector<fingerprint::Peak> peaks; ///< in fingerprint::songDensity
};

/// Before the bytes of a path.
struct RequestHead
{
    std::uint32_t pathLength = 0;
};

/// Before the peaks of a song, or, after a failure, the text that tells why.
struct ReplyHead
{
    std::uint32_t failure = 0; ///< 0: none, else a FailureKind and one
    float seconds = 0;
    std::uint32_t count = 0; ///< peaks, or bytes of UTF-8
};

/// More peaks than the longest song has: whoever tells of more cannot be trusted.
inline constexpr std::uint32_t mostPeaks = 1U << 20;

static_assert(std::is_trivially_copyable_v<fingerprint::Peak>);

} // namespace trackwise
