// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <vector>

namespace trackwise::fingerprint {

/// Bytes that reading bits may touch behind the last: they must be there, whatever is in them.
inline constexpr std::size_t bitPadding = 8;

/// The value at @p bytes, which has the lowest byte first.
template <typename T>
T loadLittle(const std::uint8_t *bytes)
{
    T value{};
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&value, bytes, sizeof(T));
    } else {
        for (std::size_t i = 0; i < sizeof(T); ++i)
            value |= T(T(bytes[i]) << 8 * i);
    }
    return value;
}

template <typename T>
void appendLittle(std::vector<std::uint8_t> &bytes, T value)
{
    for (std::size_t i = 0; i < sizeof(T); ++i)
        bytes.push_back(std::uint8_t(std::uint64_t(value) >> 8 * i));
}

/// At least 57 bits from the bit @p at on, the first as the lowest.
inline std::uint64_t bitsFrom(const std::uint8_t *bytes, std::uint64_t at)
{
    return loadLittle<std::uint64_t>(bytes + at / 8) >> at % 8;
}

inline std::uint64_t lowestBits(std::uint64_t value, unsigned count)
{
    return value & ((std::uint64_t(1) << count) - 1);
}

/// Reads numbers from bits that may be anything. What would lie behind the end reads as 1, and is noticed.
class BitReader
{
public:
    /// From the bit @p at of @p bytes on; bitPadding follows the one that has the bit @p end.
    BitReader(const std::uint8_t *bytes, std::uint64_t at, std::uint64_t end)
        : m_bytes(bytes)
        , m_at(at)
        , m_end(end)
    {}

    /// @p count: 56 at most.
    std::uint64_t take(unsigned count)
    {
        const std::uint64_t value = m_at < m_end ? lowestBits(bitsFrom(m_bytes, m_at), count) : 1;
        m_at += count;
        return value;
    }
    /// The zeros before the next one, or @p most (28 at most) where there are that many; the one is taken
    /// too.
    std::uint32_t unary(unsigned most)
    {
        if (m_at >= m_end) {
            ++m_at;
            return 0;
        }
        const auto zeros = unsigned(std::countr_zero(bitsFrom(m_bytes, m_at) | std::uint64_t(1) << most));
        m_at += zeros + 1;
        return zeros;
    }
    [[nodiscard]] std::uint64_t at() const { return m_at; }
    /// Whether more was taken than there is.
    [[nodiscard]] bool isBeyondEnd() const { return m_at > m_end; }

private:
    const std::uint8_t *m_bytes;
    std::uint64_t m_at;
    std::uint64_t m_end;
};

/// Reads gamma codes: numbers from 1 on, below 2^29. Each is as many zeros as it has bits below its highest,
/// that, and those.
class GammaReader
{
public:
    /// As for a BitReader.
    GammaReader(const std::uint8_t *bytes, std::uint64_t at, std::uint64_t end)
        : m_bytes(bytes)
        , m_at(at)
        , m_end(end)
    {}

    /// What lies behind the end reads as 1, and is noticed.
    std::uint32_t next()
    {
        auto zeros = unsigned(std::countr_zero(m_window | mostZeros));
        if (2 * zeros >= m_left) {
            if (!fill())
                return 1;
            zeros = unsigned(std::countr_zero(m_window | mostZeros));
        }
        const auto value =
            std::uint32_t(1) << zeros | std::uint32_t(lowestBits(m_window >> (zeros + 1), zeros));
        m_window >>= 2 * zeros + 1;
        m_left -= 2 * zeros + 1;
        return value;
    }
    [[nodiscard]] std::uint64_t at() const { return m_at - m_left; }
    [[nodiscard]] bool isBeyondEnd() const { return at() > m_end; }

private:
    static constexpr std::uint64_t mostZeros = std::uint64_t(1) << 28;
    static constexpr unsigned bitsAtOnce = 57;

    bool fill()
    {
        m_at -= m_left;
        m_left = 0;
        if (m_at >= m_end) {
            m_at = m_end + 1;
            return false;
        }
        m_window = lowestBits(bitsFrom(m_bytes, m_at), bitsAtOnce);
        m_at += bitsAtOnce;
        m_left = bitsAtOnce;
        return true;
    }

    const std::uint8_t *m_bytes;
    std::uint64_t m_at; ///< behind the window
    std::uint64_t m_end;
    std::uint64_t m_window = 0;
    unsigned m_left = 0; ///< bits in the window
};

} // namespace trackwise::fingerprint
