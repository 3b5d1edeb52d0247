// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/ListDifference.h"

#include <QHash>

#include <algorithm>

namespace trackwise {

namespace {

constexpr int absent = -1;

using Keys = std::span<const std::uint64_t>;

void append(std::vector<ListEdit> &edits, ListEdit::Kind kind, int count)
{
    if (count <= 0)
        return;
    if (!edits.empty() && edits.back().kind == kind)
        edits.back().count += count;
    else
        edits.push_back({kind, count});
}

/// For each row of @p after, its row in @p before or `absent`.
std::vector<int> oldRows(Keys before, Keys after)
{
    QHash<std::uint64_t, int> rowOfKey;
    rowOfKey.reserve(static_cast<qsizetype>(before.size()));
    for (size_t row = 0; row < before.size(); ++row)
        rowOfKey.insert(before[row], static_cast<int>(row));
    std::vector<int> rows;
    rows.reserve(after.size());
    for (const std::uint64_t key : after)
        rows.push_back(rowOfKey.value(key, absent));
    return rows;
}

/// Leaves only a longest strictly rising run of rows, by patience sorting; the others become `absent`.
void keepLongestRisingRun(std::vector<int> &rows)
{
    std::vector<int> ends; // place of the smallest end of a run of each length
    std::vector<int> previous(rows.size(), absent);
    for (size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] == absent)
            continue;
        const auto at = std::lower_bound(ends.begin(), ends.end(), rows[i], [&](int place, int row) {
            return rows[static_cast<size_t>(place)] < row;
        });
        if (at != ends.begin())
            previous[i] = *std::prev(at);
        if (at == ends.end())
            ends.push_back(static_cast<int>(i));
        else
            *at = static_cast<int>(i);
    }
    std::vector<int> kept(rows.size(), absent);
    for (int place = ends.empty() ? absent : ends.back(); place != absent;) {
        const auto i = static_cast<size_t>(place);
        kept[i] = rows[i];
        place = previous[i];
    }
    rows = std::move(kept);
}

/// Collects what happens on one side of the visible rows.
struct Exchange
{
    int removed = 0;
    int inserted = 0;
    bool isChange = false;

    void add(ListEdit::Kind kind, int count)
    {
        isChange = isChange || kind != ListEdit::Kind::Keep;
        if (kind != ListEdit::Kind::Insert)
            removed += count;
        if (kind != ListEdit::Kind::Remove)
            inserted += count;
    }
    void appendReplaced(std::vector<ListEdit> &edits) const
    {
        append(edits, isChange ? ListEdit::Kind::Replace : ListEdit::Kind::Keep, std::min(removed, inserted));
    }
    void appendRest(std::vector<ListEdit> &edits) const
    {
        append(edits, ListEdit::Kind::Remove, removed - inserted);
        append(edits, ListEdit::Kind::Insert, inserted - removed);
    }
};

} // namespace

std::vector<ListEdit> difference(Keys before, Keys after)
{
    const auto [oldEnd, newEnd] = std::ranges::mismatch(before, after);
    const auto prefix = static_cast<int>(oldEnd - before.begin());
    const Keys oldRest = before.subspan(static_cast<size_t>(prefix));
    const Keys newRest = after.subspan(static_cast<size_t>(prefix));

    std::vector<int> rows = oldRows(oldRest, newRest);
    keepLongestRisingRun(rows);

    std::vector<ListEdit> edits;
    append(edits, ListEdit::Kind::Keep, prefix);
    int oldRow = 0;
    for (const int row : rows) {
        if (row == absent) {
            append(edits, ListEdit::Kind::Insert, 1);
            continue;
        }
        append(edits, ListEdit::Kind::Remove, row - oldRow);
        append(edits, ListEdit::Kind::Keep, 1);
        oldRow = row + 1;
    }
    append(edits, ListEdit::Kind::Remove, static_cast<int>(oldRest.size()) - oldRow);
    return edits;
}

std::vector<ListEdit> coarsened(const std::vector<ListEdit> &edits, int first, int last)
{
    Exchange above;
    Exchange below;
    std::vector<ListEdit> visible;
    int oldRow = 0;
    for (const ListEdit &edit : edits) {
        if (edit.kind == ListEdit::Kind::Insert) {
            if (oldRow <= first)
                above.add(edit.kind, edit.count);
            else if (oldRow <= last)
                append(visible, edit.kind, edit.count);
            else
                below.add(edit.kind, edit.count);
            continue;
        }
        const int end = oldRow + edit.count;
        const int untilFirst = std::clamp(first, oldRow, end);
        const int untilLast = std::clamp(last + 1, untilFirst, end);
        if (untilFirst > oldRow)
            above.add(edit.kind, untilFirst - oldRow);
        append(visible, edit.kind, untilLast - untilFirst);
        if (end > untilLast)
            below.add(edit.kind, end - untilLast);
        oldRow = end;
    }
    // Rows come and go at the far ends: views that hold some rows beyond their edges do not notice.
    std::vector<ListEdit> result;
    above.appendRest(result);
    above.appendReplaced(result);
    for (const ListEdit &edit : visible)
        append(result, edit.kind, edit.count);
    below.appendReplaced(result);
    below.appendRest(result);
    return result;
}

} // namespace trackwise
