// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/SegmentBuilder.h"

#include "fingerprint/PackedPeaks.h"
#include "fingerprint/SegmentOutputs.h"

#include <algorithm>

namespace trackwise::fingerprint {

namespace {

std::uint32_t frameOf(float time)
{
    return std::uint32_t(std::lround(std::clamp(time, 0.0F, float(lastFrame))));
}

std::vector<KeptPeak> keptPeaks(std::span<const Peak> peaks)
{
    std::vector<KeptPeak> kept;
    kept.reserve(peaks.size());
    for (const Peak &peak : peaks)
        kept.push_back({frameOf(peak.time), std::uint32_t(std::lround(peak.bin))});
    std::sort(kept.begin(), kept.end(), [](KeptPeak a, KeptPeak b) {
        return std::pair(a.frame + 0, a.bin + 0) < std::pair(b.frame + 0, b.bin + 0);
    });
    return kept;
}

} // namespace

SegmentBuilder::SegmentBuilder(PairDensity density)
    : m_density(density)
{}

SongNumber SegmentBuilder::add(std::span<const Peak> peaks, const CatalogSong &song)
{
    const std::vector<KeptPeak> kept = keptPeaks(peaks);
    const LinePlace length = kept.empty() ? 0 : kept.back().frame / framesPerPlace + 1;
    const LinePlace beginning = m_lineLength + lineMargin;
    const std::size_t pairsBefore = m_pairs.size();
    for (const SongPair &pair : pairsOfSong(peaks, m_density)) {
        const auto place = LinePlace(std::clamp(pair.time, 0.0F, float(lastFrame)) / framesPerPlace);
        m_pairs.push_back(std::uint64_t(pair.cell) << 32 | (beginning + place));
    }
    m_songs.push_back({song, packedPeaks(kept), length, std::uint32_t(m_pairs.size() - pairsBefore)});
    m_lineLength = beginning + length + lineMargin;
    return SongNumber(m_songs.size() - 1);
}

std::vector<std::uint8_t> SegmentBuilder::bytes() &&
{
    MemoryOutput output;
    SegmentWriter writer(output);
    for (const Song &song : m_songs)
        writer.addSong(song.song, {song.packedPeaks, song.length, song.pairCount, m_density});
    std::sort(m_pairs.begin(), m_pairs.end());
    std::vector<LinePlace> places;
    for (auto pair = m_pairs.begin(); pair != m_pairs.end();) {
        const auto cell = Cell(*pair >> 32);
        places.clear();
        for (; pair != m_pairs.end() && Cell(*pair >> 32) == cell; ++pair)
            places.push_back(LinePlace(*pair));
        writer.addPlaces(cell, places);
    }
    writer.finish();
    return output.take();
}

Segment::Ptr SegmentBuilder::build() &&
{
    return std::get<Segment::Ptr>(Segment::of(SegmentBytes::of(std::move(*this).bytes())));
}

} // namespace trackwise::fingerprint
