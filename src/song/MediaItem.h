// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/ArtworkSource.h"
#include "song/PersistentID.h"

#include <QMetaType>
#include <QString>

#include <chrono>
#include <optional>

namespace trackwise {

/// A moment, in milliseconds since 1970-01-01 00:00:00 UTC.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// Everything the library knows about one song. Read-only for the rest of the program: songs are shown,
/// never edited. A missing text may be absent or empty; both are shown the same way.
struct MediaItem
{
    std::optional<QString> title;
    std::optional<QString> artist;
    std::optional<QString> albumTitle;
    std::optional<QString> albumArtist;
    std::optional<QString> composer;
    std::optional<QString> genre;
    std::optional<QString> userGrouping;
    std::optional<QString> comments;
    std::optional<QString> lyrics;
    std::optional<Instant> releaseDate; ///< start of the period when only a year or a month is known
    std::optional<Instant> lastPlayedDate;
    std::optional<Instant> dateAddedForReal; ///< absent when the library does not know it
    double playbackDuration = 0;             ///< seconds; zero or less: unknown
    unsigned playCount = 0;
    unsigned skipCount = 0;
    unsigned rating = 0; ///< stars, 0 (not rated) to 5
    unsigned beatsPerMinute = 0;
    unsigned albumTrackNumber = 0;
    unsigned albumTrackCount = 0;
    unsigned discNumber = 0;
    unsigned discCount = 0;
    bool isCompilation = false;
    bool isExplicitItem = false;
    PersistentID persistentID;
    QString playbackStoreID; ///< catalog identifier, compared as text; empty when unknown
    ArtworkPtr artwork;      ///< null when the song has none

    friend bool operator==(const MediaItem &, const MediaItem &) = default;
};

/// Whether both records are of the same song of the library, even if one of them is older (a play counted
/// since, say). Records of songs outside the library are the same when all their values are.
[[nodiscard]] bool isSameSong(const MediaItem &a, const MediaItem &b);

} // namespace trackwise

Q_DECLARE_METATYPE(trackwise::MediaItem)
