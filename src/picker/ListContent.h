// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LibraryBrowser.h"

namespace trackwise {

/// What one list of the picker shows.
struct ListContent
{
    enum class Kind { Songs, Artists, Albums };
    Kind kind = Kind::Songs;
    SongScope scope; ///< for Songs

    friend bool operator==(const ListContent &, const ListContent &) = default;
};

/// A list's rows by key, in order. A key is the number of a song's PersistentID or of a GroupKey.
struct ListOrder
{
    std::vector<std::uint64_t> keys;
    std::vector<SectionStart> sections;
};

/// One row, ready to be drawn.
struct ListRow
{
    QString title;
    QString subtitle;
    QString artwork; ///< address of a picture; empty: none
    bool isExplicit = false;
    bool isAvailable = true;

    friend bool operator==(const ListRow &, const ListRow &) = default;
};

/// "17 songs".
[[nodiscard]] QString songCountText(int count);
/// Both read the library: worker threads. The rows are those of @p keys, in their order.
[[nodiscard]] ListOrder orderOf(const LibraryBrowser &browser, const ListContent &content);
[[nodiscard]] std::vector<ListRow> rowsOf(const LibraryBrowser &browser, ListContent::Kind kind,
                                          std::span<const std::uint64_t> keys);

} // namespace trackwise
