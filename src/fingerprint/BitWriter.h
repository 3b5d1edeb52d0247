// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Bits.h"

#include <utility>

namespace trackwise::fingerprint {

/// Writes what a BitReader reads.
class BitWriter
{
public:
    void put(std::uint64_t value, unsigned count)
    {
        m_waiting |= value << m_count;
        m_count += count;
        while (m_count >= 8) {
            m_bytes.push_back(std::uint8_t(m_waiting));
            m_waiting >>= 8;
            m_count -= 8;
        }
    }
    void putGamma(std::uint32_t value)
    {
        const auto zeros = unsigned(std::bit_width(value | 1U)) - 1;
        put(std::uint64_t(1) << zeros, zeros + 1);
        put(lowestBits(value, zeros), zeros);
    }
    /// As many zeros, and a one.
    void putUnary(std::uint64_t zeros)
    {
        for (; zeros >= 32; zeros -= 32)
            put(0, 32);
        put(std::uint64_t(1) << zeros, unsigned(zeros) + 1);
    }
    /// Of all that was ever put.
    [[nodiscard]] std::uint64_t bitCount() const { return (m_taken + m_bytes.size()) * 8 + m_count; }
    [[nodiscard]] std::size_t bytesWaiting() const { return m_bytes.size(); }
    /// The whole bytes that were not taken before.
    std::vector<std::uint8_t> takeBytes()
    {
        m_taken += m_bytes.size();
        return std::exchange(m_bytes, {});
    }
    /// The same with the last byte, filled up.
    std::vector<std::uint8_t> takeAll()
    {
        put(0, (8 - m_count) % 8);
        return takeBytes();
    }

private:
    std::vector<std::uint8_t> m_bytes;
    std::uint64_t m_taken = 0;
    std::uint64_t m_waiting = 0;
    unsigned m_count = 0; ///< bits that wait: below 8 between the calls
};

} // namespace trackwise::fingerprint
