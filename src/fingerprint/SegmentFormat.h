// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogFailure.h"
#include "fingerprint/SongLine.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace trackwise::fingerprint {

/// The first bytes of a segment: which numbers lie where. All numbers have the lowest byte first.
struct SegmentHeader
{
    enum Part { Peaks, Groups, Directory, Songs, Texts, PartCount };
    struct Extent
    {
        std::uint64_t offset = 0; ///< in the file
        std::uint64_t size = 0;
        std::uint64_t checksum = 0; ///< XXH3, 64 bits
    };

    std::uint64_t fileSize = 0;
    std::uint64_t pairCount = 0;
    std::uint32_t songCount = 0;
    LinePlace lineLength = 0;
    std::uint32_t groupShift = 0;
    std::uint32_t directoryBits = 0;
    std::array<Extent, PartCount> parts;

    static constexpr std::size_t size = 192;
    [[nodiscard]] std::vector<std::uint8_t> bytes() const;
    /// @p first: the first bytes of a file of @p fileSize bytes, as many as a header has, or all. Extents lie
    /// in the file, with room for reading beyond their ends; nothing is said of their checksums.
    static CatalogResult<SegmentHeader> of(std::span<const std::uint8_t> first, std::uint64_t fileSize);
};

/// What is kept of each song, in a row of 48 bytes.
struct SongRow
{
    std::uint64_t persistentID = 0;
    std::uint64_t stamp = 0;
    std::uint64_t peaksOffset = 0; ///< in the part of the peaks
    std::uint32_t peaksSize = 0;
    LinePlace beginning = 0;       ///< on the line
    std::uint32_t textsOffset = 0; ///< title, artist, catalog identifier, each with its length before it
    std::uint32_t pairCount = 0;
    float seconds = 0;
    std::uint32_t density = 0; ///< a PairDensity

    static constexpr std::size_t size = 48;
    void appendTo(std::vector<std::uint8_t> &bytes) const;
    static SongRow of(const std::uint8_t *bytes);
};

std::uint64_t checksumOf(std::span<const std::uint8_t> bytes);

} // namespace trackwise::fingerprint
