// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Segment.h"
#include "fingerprint/SegmentWriter.h"

#include <functional>
#include <stop_token>

namespace trackwise::fingerprint {

/// A segment that is merged with others, without some of its songs.
struct MergeInput
{
    Segment::Ptr segment;
    std::vector<bool> removed; ///< may be shorter than there are songs
    [[nodiscard]] bool isRemoved(SongNumber number) const
    {
        return number < removed.size() && removed[number];
    }
};

/// Changes what is said of a song besides its sound.
using SongChange = std::function<void(CatalogSong &)>;

/// Writes the songs of @p inputs into one segment, in their order. Needs little memory besides a few bytes
/// for each cell. False where it was stopped: what is in the output is no segment then.
bool mergeSegments(std::span<const MergeInput> inputs, SegmentOutput &output, const SongChange &change = {},
                   const std::stop_token &stop = {});

/// The same in memory.
[[nodiscard]] Segment::Ptr mergedInMemory(std::span<const MergeInput> inputs);

} // namespace trackwise::fingerprint
