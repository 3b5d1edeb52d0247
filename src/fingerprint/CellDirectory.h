// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/PairCells.h"

#include <cstddef>
#include <utility>

namespace trackwise::fingerprint {

/// Where in a list that is sorted by cells each cell begins and ends. Of the millions of cells most are empty
/// in a small library, and a query asks for many of those: a bit for each cell (350 kB, which stay in the
/// cache) answers that, and the count of bits before it says where the others begin.
class CellDirectory
{
public:
    CellDirectory() = default;
    /// @p sorted: the list, with the cell in the upper half of each entry.
    explicit CellDirectory(std::span<const std::uint64_t> sorted);

    /// The first entry of @p cell, and the one behind its last.
    [[nodiscard]] std::pair<std::uint32_t, std::uint32_t> rangeOf(Cell cell) const;
    [[nodiscard]] std::size_t memoryBytes() const;

private:
    /// 64 cells: which of them have entries, and how many cells before them do.
    struct Block
    {
        std::uint64_t taken = 0;
        std::uint32_t before = 0;
    };

    std::vector<Block> m_blocks;
    std::vector<std::uint32_t> m_beginnings; ///< of the cells that have entries, and the end of the list
};

} // namespace trackwise::fingerprint
