// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CellDirectory.h"
#include "fingerprint/SongLine.h"

#include <optional>

namespace trackwise::fingerprint {

/// What is known of the sound of songs: in which of them, and when, each pair of peaks is heard, and their
/// peaks. Nothing of it changes; any number of threads may ask it.
class SongIndex
{
public:
    /// Where the pairs of @p cell begin, in order.
    [[nodiscard]] std::span<const LinePlace> places(Cell cell) const;
    /// The song at @p place, which may lie up to 8 s before its beginning or behind its end; nothing beyond
    /// the line.
    [[nodiscard]] std::optional<SongTime> songAt(double place) const;
    /// The peaks of @p song, in the order of frames.
    [[nodiscard]] std::span<const KeptPeak> peaks(SongNumber song) const;

    [[nodiscard]] std::size_t songCount() const { return m_beginnings.size(); }
    /// How long the line of all songs is.
    [[nodiscard]] LinePlace lineLength() const { return m_lineLength; }
    [[nodiscard]] std::size_t memoryBytes() const;

private:
    friend class SongIndexBuilder;

    CellDirectory m_directory;
    std::vector<LinePlace> m_places; ///< by cell, and in order within each
    std::vector<LinePlace> m_beginnings;
    std::vector<std::size_t> m_firstPeaks; ///< for each song, and the end of all
    std::vector<KeptPeak> m_peaks;
    LinePlace m_lineLength = 0;
};

/// Collects songs for an index.
class SongIndexBuilder
{
public:
    /// Adds a song by its @p peaks in songDensity.
    SongNumber add(std::span<const Peak> peaks);
    [[nodiscard]] SongIndex build() &&;

private:
    SongIndex m_index;
    std::vector<std::uint64_t> m_pairs; ///< the cell in the upper half, the place in the lower
};

} // namespace trackwise::fingerprint
