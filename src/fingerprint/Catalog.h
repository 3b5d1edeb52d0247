// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Segment.h"

#include <string_view>

namespace trackwise::fingerprint {

/// What is known of the sound of songs at one moment: segments one behind the other on one line, their songs
/// numbered through. Nothing of it changes; any number of threads may ask it.
class Catalog
{
public:
    /// A segment, and which of its songs count no more.
    struct Part
    {
        Segment::Ptr segment;
        std::string origin;        ///< the name of the added catalog; empty: the own library's
        std::vector<bool> removed; ///< may be shorter than there are songs
    };

    Catalog() = default;
    /// Parts that no place is left for on the line, after four years of music, are left out.
    explicit Catalog(std::vector<Part> parts);

    /// Calls @p take with the places of @p cell in each segment that has some: a PlaceList, and what is added
    /// to its places to have those on the line of all. Places of removed songs are among them.
    template <typename Take>
    void forEachList(Cell cell, Take &&take) const
    {
        for (const Placed &placed : m_placed) {
            const PlaceList list = placed.places->places(cell);
            if (!list.empty())
                take(list, placed.base);
        }
    }

    /// The song at @p place of the line of all, as Segment::songAt(); never a removed one.
    [[nodiscard]] std::optional<SongTime> songAt(double place) const;
    /// As Segment::peaks().
    void peaks(SongNumber number, float first, float last, std::vector<KeptPeak> &out) const;
    [[nodiscard]] CatalogSong song(SongNumber number) const;
    /// The name of the added catalog that the song is from; empty: the own library.
    [[nodiscard]] std::string_view originOf(SongNumber number) const;
    [[nodiscard]] bool isRemoved(SongNumber number) const;

    /// One more than the last number; removed songs count too.
    [[nodiscard]] SongNumber songCount() const { return m_songCount; }
    /// How long the line of all songs is.
    [[nodiscard]] LinePlace lineLength() const { return m_lineLength; }
    [[nodiscard]] const std::vector<Part> &parts() const { return m_parts; }

private:
    /// Where a part lies: what lookups need, close together.
    struct Placed
    {
        const PackedPlaces *places = nullptr;
        LinePlace base = 0;
        SongNumber firstSong = 0;
    };
    [[nodiscard]] std::size_t partOf(SongNumber number) const;

    std::vector<Part> m_parts;
    std::vector<Placed> m_placed;
    LinePlace m_lineLength = 0;
    SongNumber m_songCount = 0;
};

} // namespace trackwise::fingerprint
