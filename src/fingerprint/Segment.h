// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogSong.h"
#include "fingerprint/PackedPlaces.h"
#include "fingerprint/SegmentBytes.h"
#include "fingerprint/SegmentFormat.h"

#include <memory>
#include <optional>

namespace trackwise::fingerprint {

/// Songs with the pairs and peaks of their sound, in one file or the same bytes in memory. Nothing of it
/// changes; any number of threads may ask it. Whatever the bytes are, it answers within them.
class Segment
{
public:
    using Ptr = std::shared_ptr<const Segment>;
    /// Looks at what is needed to answer at all; the rest is trusted until verify().
    static CatalogResult<Ptr> of(SegmentBytes bytes);
    static CatalogResult<Ptr> ofFile(const std::filesystem::path &path);

    /// Compares all parts with their checksums, which reads the whole file.
    [[nodiscard]] std::optional<CatalogFailure> verify() const;

    /// Where the pairs of @p cell begin.
    [[nodiscard]] PlaceList places(Cell cell) const { return m_places.places(cell); }
    [[nodiscard]] const PackedPlaces &packedPlaces() const { return m_places; }
    /// How long the line of all songs is.
    [[nodiscard]] LinePlace lineLength() const { return m_header.lineLength; }
    /// The song at @p place, which may lie up to 8 s before its beginning or behind its end; nothing beyond
    /// the line.
    [[nodiscard]] std::optional<SongTime> songAt(double place) const;

    [[nodiscard]] std::uint32_t songCount() const { return m_header.songCount; }
    [[nodiscard]] CatalogSong song(SongNumber number) const;
    [[nodiscard]] SongRow row(SongNumber number) const;
    /// Its own places: without the margins.
    [[nodiscard]] LinePlace lengthOf(SongNumber number) const;
    /// Puts the peaks of a song from frame @p first on, and before frame @p last, to the end of @p out, in
    /// the order of frames. Only these are unpacked.
    void peaks(SongNumber number, float first, float last, std::vector<KeptPeak> &out) const;
    [[nodiscard]] std::span<const std::uint8_t> packedPeaks(SongNumber number) const;

    [[nodiscard]] std::uint64_t pairCount() const { return m_header.pairCount; }
    [[nodiscard]] std::uint64_t byteCount() const { return m_bytes.all().size(); }
    [[nodiscard]] std::span<const std::uint8_t> bytes() const { return m_bytes.all(); }

private:
    Segment(SegmentBytes bytes, const SegmentHeader &header);
    [[nodiscard]] std::span<const std::uint8_t> part(SegmentHeader::Part part) const;
    [[nodiscard]] std::optional<CatalogFailure> verify(SegmentHeader::Part part) const;
    [[nodiscard]] bool rowsAreSound() const;

    SegmentBytes m_bytes;
    SegmentHeader m_header;
    PackedPlaces m_places;
};

} // namespace trackwise::fingerprint
