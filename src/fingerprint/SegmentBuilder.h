// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Peak.h"
#include "fingerprint/Segment.h"

namespace trackwise::fingerprint {

/// Collects songs for a segment in memory.
class SegmentBuilder
{
public:
    explicit SegmentBuilder(PairDensity density = PairDensity::Full);

    /// Adds a song by its @p peaks in songDensity.
    SongNumber add(std::span<const Peak> peaks, const CatalogSong &song = {});
    [[nodiscard]] std::vector<std::uint8_t> bytes() &&;
    [[nodiscard]] Segment::Ptr build() &&;

private:
    struct Song
    {
        CatalogSong song;
        std::vector<std::uint8_t> packedPeaks;
        LinePlace length = 0;
        std::uint32_t pairCount = 0;
    };

    PairDensity m_density;
    std::vector<Song> m_songs;
    LinePlace m_lineLength = 0;
    std::vector<std::uint64_t> m_pairs; ///< the cell in the upper half, the place in the lower
};

} // namespace trackwise::fingerprint
