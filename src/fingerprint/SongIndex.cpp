// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/SongIndex.h"

#include <algorithm>

namespace trackwise::fingerprint {

std::span<const LinePlace> SongIndex::places(Cell cell) const
{
    const auto [begin, end] = m_directory.rangeOf(cell);
    return {m_places.data() + begin, m_places.data() + end};
}

std::optional<SongTime> SongIndex::songAt(double place) const
{
    if (place < 0 || place >= m_lineLength)
        return std::nullopt;
    // The line between two songs belongs half to the one and half to the other.
    const auto next = std::upper_bound(m_beginnings.begin(), m_beginnings.end(), place + lineMargin);
    if (next == m_beginnings.begin())
        return std::nullopt;
    const double inSong = place - *std::prev(next);
    return SongTime{SongNumber(next - m_beginnings.begin() - 1), float(inSong * framesPerPlace)};
}

std::span<const KeptPeak> SongIndex::peaks(SongNumber song) const
{
    return {m_peaks.data() + m_firstPeaks[song], m_peaks.data() + m_firstPeaks[song + 1]};
}

std::size_t SongIndex::memoryBytes() const
{
    return m_directory.memoryBytes() + m_places.size() * sizeof(LinePlace) +
           m_peaks.size() * sizeof(KeptPeak) +
           m_beginnings.size() * (sizeof(LinePlace) + sizeof(std::size_t));
}

SongNumber SongIndexBuilder::add(std::span<const Peak> peaks)
{
    SongIndex &index = m_index;
    const LinePlace beginning = index.m_lineLength + lineMargin;
    const auto song = SongNumber(index.m_beginnings.size());
    index.m_beginnings.push_back(beginning);
    index.m_firstPeaks.push_back(index.m_peaks.size());
    LinePlace length = 0;
    for (const Peak &peak : peaks) {
        const auto frame = std::min(lastFrame, std::uint32_t(std::lround(std::max(0.0F, peak.time))));
        index.m_peaks.push_back({frame, std::uint32_t(std::lround(peak.bin))});
        length = std::max(length, frame / framesPerPlace + 1);
    }
    std::sort(index.m_peaks.begin() + std::ptrdiff_t(index.m_firstPeaks.back()), index.m_peaks.end(),
              [](KeptPeak a, KeptPeak b) { return a.frame < b.frame; });
    for (const SongPair &pair : pairsOfSong(peaks)) {
        const LinePlace place = beginning + LinePlace(std::max(0.0F, pair.time) / framesPerPlace);
        m_pairs.push_back(std::uint64_t(pair.cell) << 32 | place);
    }
    index.m_lineLength = beginning + length + lineMargin;
    return song;
}

SongIndex SongIndexBuilder::build() &&
{
    std::sort(m_pairs.begin(), m_pairs.end());
    m_index.m_firstPeaks.push_back(m_index.m_peaks.size());
    m_index.m_places.reserve(m_pairs.size());
    for (const std::uint64_t pair : m_pairs)
        m_index.m_places.push_back(LinePlace(pair));
    m_index.m_directory = CellDirectory(m_pairs);
    return std::move(m_index);
}

} // namespace trackwise::fingerprint
