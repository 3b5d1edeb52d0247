// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/SongTags.h"

#include <QStringList>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace trackwise {

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
    ComposerSort,
    ReleaseDate,
    OriginalDate,
    Track,
    TrackCount,
    Disc,
    DiscCount,
    BeatsPerMinute,
    Compilation,
    Advisory,
    MediaKind,
    RatingFraction, ///< 0 to 1
    RatingPercent,  ///< 0 to 100
    RatingLoose,    ///< fraction, stars, half stars or percent, by its looks
    PlayCount,
    CatalogID,
    AlbumCatalogID,
    ArtistCatalogID,
    Isrc,
    RecordingMBID,
    ReleaseMBID,
    MusicalKey,
    Label,
    CatalogNumber,
    Barcode,
    Copyright,
    Last = Copyright,
};

/// The texts of one tag, by field. Where a dialect has several spellings of a field, each has a rank and the
/// lowest rank wins; values of equal rank form a list, each once.
class TagFields
{
public:
    void add(Field field, QString value, int rank = 0);
    struct Meaning
    {
        Field field;
        int rank;
    };
    /// What a free-form key means, given in upper case ("ALBUM ARTIST", "FMPS_RATING"); nothing if unknown.
    [[nodiscard]] static std::optional<Meaning> meaning(std::string_view key);
    /// Takes the fields that this one lacks: the next best tag of the same file.
    void fillGapsFrom(const TagFields &other);

    [[nodiscard]] const QStringList &values(Field field) const { return m_fields[index(field)].values; }
    [[nodiscard]] bool has(Field field) const { return !values(field).isEmpty(); }

private:
    struct Entry
    {
        QStringList values;
        int rank = 0;
    };
    static constexpr std::size_t index(Field field) { return static_cast<std::size_t>(field); }

    std::array<Entry, static_cast<std::size_t>(Field::Last) + 1> m_fields;
};

/// Reads the texts as what they mean. Leaves artwork, duration and hash alone.
[[nodiscard]] SongTags songTags(const TagFields &fields);

} // namespace trackwise
