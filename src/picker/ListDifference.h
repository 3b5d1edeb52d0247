// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace trackwise {

/// One step on the way from an old order of rows to a new one, front to back.
struct ListEdit
{
    enum class Kind {
        Keep,
        Replace, ///< as many rows as before, but others
        Remove,
        Insert,
    };
    Kind kind = Kind::Keep;
    int count = 0; ///< rows

    friend bool operator==(const ListEdit &, const ListEdit &) = default;
};

/// The steps that turn @p before into @p after. As many rows as possible are kept; a row that changed its
/// place is removed and inserted. Takes n log n steps: for worker threads. Keys should be unique; a repeated
/// one is inserted again.
[[nodiscard]] std::vector<ListEdit> difference(std::span<const std::uint64_t> before,
                                               std::span<const std::uint64_t> after);

/// The same change in few steps: only rows @p first to @p last of the old order keep their own steps. On
/// either side rows become others in place, and one step makes up for the difference in number. Whoever
/// shows just those rows sees no difference, but a list that gained a thousand songs all over the alphabet
/// is announced in a handful of signals.
[[nodiscard]] std::vector<ListEdit> coarsened(const std::vector<ListEdit> &edits, int first, int last);

} // namespace trackwise
