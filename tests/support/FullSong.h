// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

namespace trackwise {

/// A song of which everything is known. Its tags are those of everyTag().
[[nodiscard]] inline MediaItem fullSong()
{
    using namespace std::chrono_literals;
    constexpr std::chrono::sys_days released(2021y / 3 / 5);
    return {.title = QStringLiteral("Tïtle ✓ 夜"),
            .artist = QStringLiteral("First, Second"),
            .albumTitle = QStringLiteral("Album"),
            .albumArtist = QStringLiteral("Album Artist"),
            .composer = QStringLiteral("Composer"),
            .genre = QStringLiteral("Jazz, Rock"),
            .userGrouping = QStringLiteral("Grouping"),
            .comments = QStringLiteral("Comment"),
            .lyrics = QStringLiteral("First line\nSecond line"),
            .releaseDate = released,
            .lastPlayedDate = released + 15h + 4min,
            .dateAddedForReal = released - 64 * 24h + 9h,
            .playbackDuration = 205.9,
            .playCount = 7,
            .skipCount = 2,
            .rating = 4,
            .beatsPerMinute = 128,
            .albumTrackNumber = 3,
            .albumTrackCount = 12,
            .discNumber = 1,
            .discCount = 2,
            .isCompilation = true,
            .isExplicitItem = true,
            .persistentID = PersistentID{0xABC},
            .playbackStoreID = QStringLiteral("1440857781")};
}

} // namespace trackwise
