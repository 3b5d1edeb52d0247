// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/PartialDate.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace trackwise {

enum class Advisory : std::uint8_t { None, Explicit, Clean };

/// Which picture belongs to a song, without its bytes.
struct ArtworkSummary
{
    enum class Place : std::uint8_t { None, Embedded, FolderImage };

    Place place = Place::None;
    QByteArray path; ///< file that holds the picture: the song itself, or the image beside it
    QByteArray key;  ///< hash of the picture's bytes, 16 hexadecimal digits; equal pictures have equal keys

    friend bool operator==(const ArtworkSummary &, const ArtworkSummary &) = default;
};

/// Everything that one music file says about its song. Absent: the file does not say it; an empty text is
/// never kept. Texts are as written, at most 1 MiB each.
struct SongTags
{
    std::optional<QString> title;
    QStringList artists; ///< one entry an artist where the format keeps a list
    std::optional<QString> albumTitle;
    std::optional<QString> albumArtist;
    std::optional<QString> composer;
    QStringList genres;
    std::optional<QString> grouping;
    std::optional<QString> comments;
    std::optional<QString> lyrics; ///< embedded, else of the sidecar file; without time marks
    std::optional<QString> titleSort;
    std::optional<QString> artistSort;
    std::optional<QString> albumSort;
    std::optional<QString> albumArtistSort;

    std::optional<PartialDate> releaseDate;
    double durationSeconds = 0;        ///< above zero for every file that readTags accepts
    std::optional<int> ratingPercent;  ///< 0 to 100; absent differs from 0
    std::optional<unsigned> playCount; ///< as another player wrote it
    std::optional<unsigned> beatsPerMinute;
    std::optional<unsigned> trackNumber; ///< zero is never kept, here and below
    std::optional<unsigned> trackCount;
    std::optional<unsigned> discNumber;
    std::optional<unsigned> discCount;
    bool isCompilation = false;       ///< the flag alone; "Various Artists" does not set it
    std::optional<Advisory> advisory; ///< None: the file says that it is neither

    std::optional<QString> catalogID; ///< of the streaming catalog's song; compared as text
    std::optional<QString> recordingMBID;

    ArtworkSummary artwork;      ///< embedded or none: whether a folder image counts is the folder's matter
    std::uint64_t audioHash = 0; ///< of the sound alone: the same after any retagging (see AudioHash.h)

    /// All artists, or genres, as one text joined with ", "; absent when there is none.
    [[nodiscard]] std::optional<QString> displayArtist() const;
    [[nodiscard]] std::optional<QString> displayGenre() const;
    /// Whole stars, 0 to 5, 0 when not rated. A half star counts as a whole one (50 % is 3 stars), and
    /// whatever is above 0 has at least one.
    [[nodiscard]] unsigned stars() const;

    friend bool operator==(const SongTags &, const SongTags &) = default;
};

} // namespace trackwise
