// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/CellDirectory.h"

#include <bit>

namespace trackwise::fingerprint {

namespace {

constexpr Cell cellsPerBlock = 64;

std::uint64_t bitOf(Cell cell)
{
    return std::uint64_t(1) << cell % cellsPerBlock;
}

} // namespace

CellDirectory::CellDirectory(std::span<const std::uint64_t> sorted)
    : m_blocks(cellCount / cellsPerBlock + 1)
{
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        const auto cell = Cell(sorted[i] >> 32);
        if (i > 0 && cell == Cell(sorted[i - 1] >> 32))
            continue;
        m_blocks[cell / cellsPerBlock].taken |= bitOf(cell);
        m_beginnings.push_back(std::uint32_t(i));
    }
    m_beginnings.push_back(std::uint32_t(sorted.size()));
    std::uint32_t before = 0;
    for (Block &block : m_blocks) {
        block.before = before;
        before += std::uint32_t(std::popcount(block.taken));
    }
}

std::pair<std::uint32_t, std::uint32_t> CellDirectory::rangeOf(Cell cell) const
{
    if (m_blocks.empty() || cell >= cellCount)
        return {0, 0};
    const Block &block = m_blocks[cell / cellsPerBlock];
    const std::uint64_t bit = bitOf(cell);
    if ((block.taken & bit) == 0)
        return {0, 0};
    const auto rank = block.before + std::uint32_t(std::popcount(block.taken & (bit - 1)));
    return {m_beginnings[rank], m_beginnings[rank + 1]};
}

std::size_t CellDirectory::memoryBytes() const
{
    return m_blocks.size() * sizeof(Block) + m_beginnings.size() * sizeof(std::uint32_t);
}

} // namespace trackwise::fingerprint
