// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicFile.h"

#include <array>
#include <initializer_list>
#include <optional>
#include <string_view>

namespace trackwise {

/// One box (atom) of an MP4 file, ISO 14496-12, 4.2.
struct Mp4Box
{
    qint64 begin = 0;
    qint64 end = 0;
    qint64 headerSize = 0; ///< with the version and flags of a box that holds boxes
    std::array<char, 4> type = {};

    [[nodiscard]] std::string_view name() const { return {type.data(), type.size()}; }
    [[nodiscard]] qint64 contentBegin() const { return begin + headerSize; }
};

/// The box that begins at @p at; nothing when it does not fit in what ends at @p end.
[[nodiscard]] std::optional<Mp4Box> mp4BoxAt(MusicFile &file, qint64 at, qint64 end);
/// The first box of that name among those that lie one after the other in [@p begin, @p end).
[[nodiscard]] std::optional<Mp4Box> mp4BoxIn(MusicFile &file, qint64 begin, qint64 end,
                                             std::string_view name);

/// The box at the end of a path from the file's first level on.
[[nodiscard]] std::optional<Mp4Box> mp4BoxAlong(MusicFile &file,
                                                std::initializer_list<std::string_view> path);
/// The number in the named item of a list of tags (`ilst`), one to eight bytes wide.
[[nodiscard]] std::optional<std::uint64_t> mp4Number(MusicFile &file, const Mp4Box &list,
                                                     std::string_view name);

} // namespace trackwise
