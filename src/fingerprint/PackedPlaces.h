// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/BitWriter.h"
#include "fingerprint/PairCells.h"
#include "fingerprint/PlaceList.h"

#include <array>
#include <span>
#include <vector>

namespace trackwise::fingerprint {

/// How the places of a segment are packed; all of it is known before the first is.
///
/// Cells are taken together in groups of 2^groupShift, about as many as have two dozen places. A group that
/// has places is, bit by bit: the number of its cells that have some, less one (groupShift bits); for each of
/// them the step from the cell before and the number of its places (gamma codes); the lower bits of the steps
/// from place to place, cell by cell; the rests of these steps, each as many zeros and a one. How many bits
/// are lower follows from the number of places and the length of the line.
class PlaceCoding
{
public:
    PlaceCoding(std::uint64_t places, LinePlace lineLength);
    PlaceCoding(unsigned groupShift, LinePlace lineLength);

    [[nodiscard]] unsigned groupShift() const { return m_groupShift; }
    [[nodiscard]] std::uint32_t groupCount() const { return ((cellCount - 1) >> m_groupShift) + 1; }
    [[nodiscard]] LinePlace lineLength() const { return m_lineLength; }
    [[nodiscard]] unsigned lowerBits(std::uint32_t places) const
    {
        return places < m_lowerBits.size() ? m_lowerBits[places] : computedLowerBits(places);
    }

    static constexpr unsigned widestGroup = 12;

private:
    [[nodiscard]] unsigned computedLowerBits(std::uint32_t places) const;

    unsigned m_groupShift;
    LinePlace m_lineLength;
    std::array<std::uint8_t, 256> m_lowerBits{}; ///< divisions take long, and most lists are short
};

/// The places of a segment by cells, read from bytes that may be anything.
class PackedPlaces
{
public:
    struct Bytes
    {
        std::span<const std::uint8_t> groups;    ///< bitPadding follows each of these
        std::span<const std::uint8_t> directory; ///< see PlaceDirectory
        unsigned directoryBits = 0;
    };

    /// Where @p bytes are too few for what they should be, all lists are empty.
    PackedPlaces(const PlaceCoding &coding, const Bytes &bytes);

    [[nodiscard]] PlaceList places(Cell cell) const;
    /// Puts the cells of @p group that have places, in order, to @p out.
    struct CellPlaces
    {
        Cell cell = 0;
        PlaceList places;
    };
    void listsOf(std::uint32_t group, std::vector<CellPlaces> &out) const;
    [[nodiscard]] const PlaceCoding &coding() const { return m_coding; }

private:
    [[nodiscard]] std::uint64_t beginningOf(std::uint32_t group) const;
    [[nodiscard]] std::uint64_t listCount(std::uint64_t group) const;
    [[nodiscard]] PlaceList listAt(std::uint64_t lower, std::uint64_t rest, std::uint64_t end,
                                   std::uint32_t size) const;

    PlaceCoding m_coding;
    Bytes m_bytes;
    const std::uint8_t *m_relatives = nullptr;
};

/// Where the groups begin: for each 64 of them a bit of the whole in 8 bytes, and for each the bits from
/// there, all with as many bits as the largest of them has. One more beginning is the end.
class PlaceDirectory
{
public:
    void add(std::uint64_t beginning);
    struct Packed
    {
        std::vector<std::uint8_t> bytes;
        unsigned bits = 0;
    };
    [[nodiscard]] Packed packed() const;

    static constexpr unsigned groupsTogether = 64;
    /// The bytes before the relative beginnings of @p groups groups.
    static std::size_t bytesOfBases(std::uint32_t groups);
    static std::size_t bytesOf(std::uint32_t groups, unsigned bits);

private:
    std::vector<std::uint64_t> m_bases;
    std::vector<std::uint32_t> m_relatives;
};

/// Packs the places of a segment, cell by cell.
class PlacePacker
{
public:
    explicit PlacePacker(const PlaceCoding &coding);

    /// @p cell is greater than the one before, @p places are in order on the line.
    void add(Cell cell, std::span<const LinePlace> places);
    /// The bytes that are done, and were not taken before.
    std::vector<std::uint8_t> takeBytes() { return m_groups.takeBytes(); }
    [[nodiscard]] std::size_t bytesWaiting() const { return m_groups.bytesWaiting(); }
    /// The last bytes. Nothing is added any more.
    std::vector<std::uint8_t> finish();
    [[nodiscard]] PlaceDirectory::Packed directory() const { return m_directory.packed(); }

private:
    struct List
    {
        Cell cell = 0;
        std::uint32_t size = 0;
    };
    void closeGroup();

    PlaceCoding m_coding;
    BitWriter m_groups;
    PlaceDirectory m_directory;
    std::uint32_t m_group = 0;
    std::vector<List> m_lists; ///< of the group at hand
    std::vector<LinePlace> m_places;
};

} // namespace trackwise::fingerprint
