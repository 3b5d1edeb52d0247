// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/PackedPeaks.h"

#include "fingerprint/BitWriter.h"
#include "fingerprint/Peak.h"

#include <algorithm>
#include <array>

namespace trackwise::fingerprint {

namespace {

constexpr std::size_t peaksOfBlock = 128;
constexpr std::size_t headBytes = 8;
constexpr std::size_t entryBytes = 8;
/// A step with this many zeros is written out behind them: some songs are silent for minutes.
constexpr unsigned escape = 24;
constexpr unsigned frameBits = 23;

/// The bands have about as many peaks each, but the lower ones less bins: two bits for the band, and what its
/// bins take.
constexpr std::array<std::uint32_t, bandCount> firstBins{0, 30, 66, 145};
constexpr std::array<unsigned, bandCount> binBits{5, 6, 7, 8};
constexpr std::uint32_t highestBin = firstBins[3] + (1U << binBits[3]) - 1;

void putStep(BitWriter &bits, std::uint32_t step, unsigned lowerBits)
{
    if (const std::uint32_t rest = step >> lowerBits; rest < escape) {
        bits.putUnary(rest);
        bits.put(lowestBits(step, lowerBits), lowerBits);
    } else {
        bits.putUnary(escape);
        bits.put(step, frameBits);
    }
}

void putBin(BitWriter &bits, std::uint32_t bin)
{
    const auto band = std::size_t(bandOf(float(bin)));
    bits.put(band, 2);
    bits.put(std::min(bin, highestBin) - firstBins[band], binBits[band]);
}

/// What makes the steps shortest.
unsigned lowerBitsFor(std::span<const KeptPeak> peaks)
{
    std::array<std::uint64_t, 8> lengths{};
    for (std::size_t i = 1; i < peaks.size(); ++i) {
        const std::uint32_t step = peaks[i].frame - peaks[i - 1].frame;
        for (unsigned bits = 0; bits < lengths.size(); ++bits)
            lengths[bits] += bits + std::min(escape + frameBits, step >> bits);
    }
    return unsigned(std::min_element(lengths.begin(), lengths.end()) - lengths.begin());
}

class Unpacker
{
public:
    explicit Unpacker(std::span<const std::uint8_t> packed)
        : m_packed(packed)
    {
        if (packed.size() < headBytes)
            return;
        const std::size_t peaks = loadLittle<std::uint32_t>(packed.data());
        const std::size_t blocks = (peaks + peaksOfBlock - 1) / peaksOfBlock;
        m_lowerBits = std::min<std::uint32_t>(frameBits, loadLittle<std::uint32_t>(packed.data() + 4));
        if (blocks > (packed.size() - headBytes) / entryBytes)
            return;
        m_peaks = peaks;
        m_blocks = blocks;
    }

    [[nodiscard]] std::size_t blocks() const { return m_blocks; }
    [[nodiscard]] std::uint32_t firstFrame(std::size_t block) const
    {
        return loadLittle<std::uint32_t>(m_packed.data() + headBytes + block * entryBytes);
    }
    /// Calls @p take with the peaks of @p block until it returns false, or the bits end, which is false too.
    template <typename Take>
    bool unpack(std::size_t block, Take &&take) const
    {
        const std::uint64_t bitsBegin = (headBytes + m_blocks * entryBytes) * 8;
        const std::uint8_t *entry = m_packed.data() + headBytes + block * entryBytes;
        BitReader bits(m_packed.data(), bitsBegin + loadLittle<std::uint32_t>(entry + 4),
                       std::uint64_t(m_packed.size()) * 8);
        std::uint64_t frame = firstFrame(block);
        const std::size_t peaks = std::min(peaksOfBlock, m_peaks - block * peaksOfBlock);
        for (std::size_t i = 0; i < peaks; ++i) {
            if (i > 0)
                frame += takeStep(bits);
            const auto band = std::size_t(bits.take(2));
            const auto bin = firstBins[band] + std::uint32_t(bits.take(binBits[band]));
            if (bits.isBeyondEnd() || frame > lastFrame || !take(KeptPeak{std::uint32_t(frame), bin}))
                return false;
        }
        return true;
    }

private:
    [[nodiscard]] std::uint32_t takeStep(BitReader &bits) const
    {
        const std::uint32_t rest = bits.unary(escape);
        if (rest == escape)
            return std::uint32_t(bits.take(frameBits));
        return rest << m_lowerBits | std::uint32_t(bits.take(m_lowerBits));
    }

    std::span<const std::uint8_t> m_packed;
    std::size_t m_peaks = 0;
    std::size_t m_blocks = 0;
    unsigned m_lowerBits = 0;
};

} // namespace

std::vector<std::uint8_t> packedPeaks(std::span<const KeptPeak> peaks)
{
    std::vector<std::uint8_t> bytes;
    const unsigned lowerBits = lowerBitsFor(peaks);
    appendLittle(bytes, std::uint32_t(peaks.size()));
    appendLittle(bytes, std::uint32_t(lowerBits));
    BitWriter bits;
    for (std::size_t i = 0; i < peaks.size(); ++i) {
        if (i % peaksOfBlock == 0) {
            appendLittle(bytes, std::uint32_t(peaks[i].frame));
            appendLittle(bytes, std::uint32_t(bits.bitCount()));
        } else {
            putStep(bits, peaks[i].frame - peaks[i - 1].frame, lowerBits);
        }
        putBin(bits, peaks[i].bin);
    }
    const auto packed = bits.takeAll();
    bytes.insert(bytes.end(), packed.begin(), packed.end());
    return bytes;
}

void unpackPeaks(std::span<const std::uint8_t> packed, float first, float last, std::vector<KeptPeak> &out)
{
    const Unpacker unpacker(packed);
    // The last block that begins before the first frame.
    std::size_t block = 0;
    for (std::size_t behind = unpacker.blocks(); behind - block > 1;) {
        const std::size_t middle = block + (behind - block) / 2;
        (float(unpacker.firstFrame(middle)) < first ? block : behind) = middle;
    }
    const auto take = [&](KeptPeak peak) {
        if (float(peak.frame) >= last)
            return false;
        if (float(peak.frame) >= first)
            out.push_back(peak);
        return true;
    };
    while (block < unpacker.blocks() && unpacker.unpack(block, take))
        ++block;
}

} // namespace trackwise::fingerprint
