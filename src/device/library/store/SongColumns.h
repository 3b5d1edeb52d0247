// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/Sqlite.h"
#include "device/library/tags/SongTags.h"
#include "song/MediaItem.h"

#include <optional>
#include <span>

namespace trackwise {

/// One column of the table of songs that a file's tags fill: how it is written and, where the record shows
/// it, how it is read again and what it is while there are tags only. A further field is a further line of
/// the table in SongColumns.cpp, and a migration.
struct SongColumn
{
    const char *name;
    void (*bind)(sqlite::Statement &statement, const SongTags &tags);
    void (*read)(MediaItem &item, const sqlite::Statement &row, int column) = nullptr;
    void (*fill)(MediaItem &item, const SongTags &tags) = nullptr;
};
[[nodiscard]] std::span<const SongColumn> songColumns();

/// The record of a song that is no song of the library: all that its file says. @p folderImage: the picture
/// beside it, which counts where the file has none in it.
[[nodiscard]] MediaItem itemOf(const SongTags &tags, const std::optional<ArtworkSummary> &folderImage);

} // namespace trackwise
