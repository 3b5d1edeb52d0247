// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Bits.h"
#include "fingerprint/SongLine.h"

namespace trackwise::fingerprint {

/// The places of one cell in one segment, in order, as they are packed there: the steps from place to place,
/// of which the lower bits and the rest are kept apart. Valid as long as the segment; whatever its bytes are,
/// all places lie on its line.
class PlaceList
{
public:
    PlaceList() = default;

    /// How many places there are (fewer where the segment is damaged).
    [[nodiscard]] std::uint32_t size() const { return m_size; }
    [[nodiscard]] bool empty() const { return m_size == 0; }

    /// Calls @p take with each place.
    template <typename Take>
    void forEach(Take &&take) const
    {
        const std::uint8_t *bytes = m_rests;
        std::uint64_t word =
            m_size == 0 ? 0 : loadLittle<std::uint64_t>(bytes) & ~std::uint64_t(0) << m_firstRest;
        std::uint64_t before =
            std::uint64_t(0) - m_firstRest; // the bit of the rests that the word begins with
        std::uint64_t lower = m_firstLower;
        std::uint64_t sum = 0;
        for (std::uint32_t i = 0; i < m_size; ++i) {
            while (word == 0) {
                bytes += sizeof(word);
                before += 64;
                if (bytes >= m_end)
                    return;
                word = loadLittle<std::uint64_t>(bytes);
            }
            // Each rest is as many zeros, and a one: before this one are i ones.
            const std::uint64_t rests = before + std::uint64_t(std::countr_zero(word)) - i;
            word &= word - 1;
            sum += lowestBits(bitsFrom(m_lowers, lower), m_lowerBits);
            lower += m_lowerBits;
            const std::uint64_t place = (rests << m_lowerBits) + sum;
            if (place >= m_lineLength)
                return;
            take(LinePlace(place));
        }
    }

private:
    friend class PackedPlaces;

    const std::uint8_t *m_lowers = nullptr;
    const std::uint8_t *m_rests = nullptr;
    const std::uint8_t *m_end = nullptr; ///< behind the last byte of the rests
    std::uint32_t m_size = 0;
    LinePlace m_lineLength = 0;
    std::uint8_t m_lowerBits = 0;
    std::uint8_t m_firstLower = 0; ///< bit in the first byte
    std::uint8_t m_firstRest = 0;
};

} // namespace trackwise::fingerprint
