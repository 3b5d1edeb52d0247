// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogSong.h"
#include "fingerprint/PackedPlaces.h"
#include "fingerprint/SegmentFormat.h"

#include <memory>
#include <optional>

struct XXH3_state_s;

namespace trackwise::fingerprint {

/// Where a segment is written to.
class SegmentOutput
{
public:
    virtual ~SegmentOutput() = default;
    /// What did not work is kept for the end.
    virtual void append(std::span<const std::uint8_t> bytes) = 0;
    /// Writes over the first bytes.
    virtual void putFirst(std::span<const std::uint8_t> bytes) = 0;
};

/// Writes a segment from its beginning to its end, so that the largest takes little memory: all songs, then
/// the places of all cells in order.
class SegmentWriter
{
public:
    /// @p output must stay as long as the writer does.
    explicit SegmentWriter(SegmentOutput &output);
    ~SegmentWriter();

    struct Sound
    {
        std::span<const std::uint8_t> packedPeaks;
        LinePlace length = 0; ///< places
        std::uint32_t pairCount = 0;
        PairDensity density = PairDensity::Full;
    };
    /// Where the song begins on the line.
    LinePlace addSong(const CatalogSong &song, const Sound &sound);
    /// @p cell is greater than the one before; @p places are in order.
    void addPlaces(Cell cell, std::span<const LinePlace> places);
    void finish();

private:
    void append(std::span<const std::uint8_t> bytes);
    void endPart(SegmentHeader::Part part);
    void putPart(SegmentHeader::Part part, std::span<const std::uint8_t> bytes);
    PlacePacker &packer();

    SegmentOutput &m_output;
    SegmentHeader m_header;
    std::unique_ptr<XXH3_state_s, void (*)(XXH3_state_s *)> m_checksum; ///< of the part at hand
    std::uint64_t m_partBegin = SegmentHeader::size;
    std::uint64_t m_written = 0;
    std::vector<std::uint8_t> m_rows;
    std::vector<std::uint8_t> m_texts;
    std::optional<PlacePacker> m_packer; ///< from the first places on
};

} // namespace trackwise::fingerprint
