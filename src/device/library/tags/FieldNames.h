// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/SongTags.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace trackwise {

/// To be raised with every change after which some file gives other tags, or can be read that could not be:
/// what an earlier version has read is then read again, once.
inline constexpr int readerVersion = 3;

/// What a tag of any dialect can say, before it is understood. Ratings come in kinds, since formats count
/// them differently.
enum class Field : std::uint8_t {
    Title,
    Artist,
    Album,
    AlbumArtist,
    Composer,
    Genre,
    Grouping,
    Comments,
    Lyrics,
    SyncedLyrics,
    TitleSort,
    ArtistSort,
    AlbumSort,
    AlbumArtistSort,
    ReleaseDate,
    Track,
    TrackCount,
    Disc,
    DiscCount,
    BeatsPerMinute,
    Compilation,
    Advisory,
    RatingFraction, ///< 0 to 1
    RatingPercent,  ///< 0 to 100
    RatingLoose,    ///< fraction, stars, half stars or percent, by its looks
    PlayCount,
    CatalogID,
    RecordingMBID,
    Last = RecordingMBID,
};

/// How one dialect names a field. Where it has several names for one, the lowest rank wins.
struct FieldName
{
    std::string_view name;
    Field field;
    int rank = 0;
};

/// A free-form key, given in upper case ("ALBUM ARTIST", "FMPS_RATING"): Vorbis comments, APE items, what
/// libavformat gives, and the user's own fields of the other dialects.
[[nodiscard]] std::optional<FieldName> freeFormName(std::string_view key);
/// A text frame of ID3v2.4; TagLib has renamed those of older versions.
[[nodiscard]] std::optional<FieldName> id3FrameName(std::string_view id);
/// An attribute of ASF, given in upper case.
[[nodiscard]] std::optional<FieldName> asfName(std::string_view key);
[[nodiscard]] std::span<const FieldName> riffInfoNames();

/// An atom of MP4's list of tags, and what it holds.
struct Mp4Atom
{
    enum class Kind : std::uint8_t { Text, Byte, Int, UInt, Bool, Pair };

    std::string_view name;
    Kind kind;
    Field field;
    Field second = Field::Last; ///< of a pair
};
[[nodiscard]] std::optional<Mp4Atom> mp4Atom(std::string_view name);

/// A field whose text is kept as it is: the first, or all of them as one text joined with ", ".
struct PlainText
{
    enum class Take : std::uint8_t { First, All };

    Field field;
    Take take;
    std::optional<QString> SongTags::*member;
};
[[nodiscard]] std::span<const PlainText> plainTexts();

} // namespace trackwise
