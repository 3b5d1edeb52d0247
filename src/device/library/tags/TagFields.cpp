// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/TagFields.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr qsizetype longestText = qsizetype{512} * 1024; ///< in UTF-16 units: 1 MiB
constexpr qsizetype mostValues = 256;

struct Spelling
{
    std::string_view key;
    Field field;
    int rank;
};

/// Every spelling of a free-form key, upper case, in order.
constexpr std::array spellings = {
    Spelling{"ALBUM", Field::Album, 0},
    Spelling{"ALBUM ARTIST", Field::AlbumArtist, 1},
    Spelling{"ALBUMARTIST", Field::AlbumArtist, 0},
    Spelling{"ALBUMARTISTSORT", Field::AlbumArtistSort, 0},
    Spelling{"ALBUMSORT", Field::AlbumSort, 0},
    Spelling{"ALBUM_ARTIST", Field::AlbumArtist, 2},
    Spelling{"ARTIST", Field::Artist, 0},
    Spelling{"ARTISTSORT", Field::ArtistSort, 0},
    Spelling{"BARCODE", Field::Barcode, 0},
    Spelling{"BPM", Field::BeatsPerMinute, 0},
    Spelling{"CATALOGNUMBER", Field::CatalogNumber, 0},
    Spelling{"COMMENT", Field::Comments, 0},
    Spelling{"COMMENTS", Field::Comments, 1},
    Spelling{"COMPILATION", Field::Compilation, 0},
    Spelling{"COMPOSER", Field::Composer, 0},
    Spelling{"COMPOSERSORT", Field::ComposerSort, 0},
    Spelling{"CONTENT GROUP", Field::Grouping, 2},
    Spelling{"CONTENTGROUP", Field::Grouping, 1},
    Spelling{"COPYRIGHT", Field::Copyright, 0},
    Spelling{"DATE", Field::ReleaseDate, 0},
    Spelling{"DESCRIPTION", Field::Comments, 1},
    Spelling{"DISC", Field::Disc, 1},
    Spelling{"DISCNUMBER", Field::Disc, 0},
    Spelling{"DISCTOTAL", Field::DiscCount, 0},
    Spelling{"FMPS/PLAYCOUNT", Field::PlayCount, 0},
    Spelling{"FMPS/RATING", Field::RatingFraction, 0},
    Spelling{"FMPS_PLAYCOUNT", Field::PlayCount, 0},
    Spelling{"FMPS_RATING", Field::RatingFraction, 0},
    Spelling{"GENRE", Field::Genre, 0},
    Spelling{"GROUPING", Field::Grouping, 0},
    Spelling{"INITIALKEY", Field::MusicalKey, 0},
    Spelling{"ISRC", Field::Isrc, 0},
    Spelling{"ITUNESADVISORY", Field::Advisory, 0},
    Spelling{"ITUNESALBUMID", Field::AlbumCatalogID, 0},
    Spelling{"ITUNESARTISTID", Field::ArtistCatalogID, 0},
    Spelling{"ITUNESCATALOGID", Field::CatalogID, 0},
    Spelling{"KEY", Field::MusicalKey, 1},
    Spelling{"KEY SIGNATURE", Field::MusicalKey, 2},
    Spelling{"LABEL", Field::Label, 0},
    Spelling{"LYRICS", Field::Lyrics, 0},
    Spelling{"MUSICBRAINZ ALBUM ID", Field::ReleaseMBID, 1},
    Spelling{"MUSICBRAINZ TRACK ID", Field::RecordingMBID, 1},
    Spelling{"MUSICBRAINZ/ALBUM ID", Field::ReleaseMBID, 1},
    Spelling{"MUSICBRAINZ/TRACK ID", Field::RecordingMBID, 1},
    Spelling{"MUSICBRAINZ_ALBUMID", Field::ReleaseMBID, 0},
    Spelling{"MUSICBRAINZ_TRACKID", Field::RecordingMBID, 0},
    Spelling{"ORIGINALDATE", Field::OriginalDate, 0},
    Spelling{"ORIGINALYEAR", Field::OriginalDate, 1},
    Spelling{"PLAYCOUNT", Field::PlayCount, 1},
    Spelling{"PUBLISHER", Field::Label, 1},
    Spelling{"RATING", Field::RatingLoose, 0},
    Spelling{"RECORDED DATE", Field::ReleaseDate, 3},
    Spelling{"RELEASEDATE", Field::ReleaseDate, 1},
    Spelling{"SYNCEDLYRICS", Field::SyncedLyrics, 0},
    Spelling{"TEMPO", Field::BeatsPerMinute, 1},
    Spelling{"TITLE", Field::Title, 0},
    Spelling{"TITLESORT", Field::TitleSort, 0},
    Spelling{"TOTALDISCS", Field::DiscCount, 1},
    Spelling{"TOTALTRACKS", Field::TrackCount, 1},
    Spelling{"TRACK", Field::Track, 1},
    Spelling{"TRACK NUMBER", Field::Track, 2},
    Spelling{"TRACKNUMBER", Field::Track, 0},
    Spelling{"TRACKTOTAL", Field::TrackCount, 0},
    Spelling{"UNSYNCED LYRICS", Field::Lyrics, 2},
    Spelling{"UNSYNCEDLYRICS", Field::Lyrics, 1},
    Spelling{"YEAR", Field::ReleaseDate, 2},
};
static_assert(std::ranges::is_sorted(spellings, {}, &Spelling::key));

/// Nobody sees a blank or an invisible character around a text, and none is meant.
QString withoutOuterBlanks(QStringView value)
{
    const auto counts = [](QChar c) {
        return !c.isSpace() && c != u'\0' && c != u'\ufeff' && c != u'\u200b';
    };
    const auto first = std::find_if(value.begin(), value.end(), counts);
    const auto last = std::find_if(value.rbegin(), std::make_reverse_iterator(first), counts).base();
    return QString(first, last - first);
}

} // namespace

void TagFields::add(Field field, QString value, int rank)
{
    value = withoutOuterBlanks(value);
    if (value.isEmpty())
        return;
    auto &entry = m_fields[index(field)];
    if (!entry.values.isEmpty() && rank > entry.rank)
        return;
    if (rank < entry.rank)
        entry.values.clear();
    entry.rank = rank;
    value.truncate(longestText);
    if (entry.values.size() >= mostValues || entry.values.contains(value))
        return;
    entry.values.append(std::move(value));
}

std::optional<TagFields::Meaning> TagFields::meaning(std::string_view key)
{
    // Some players add the rater to the key: "RATING:someone@example.org".
    if (const auto colon = key.find(':'); colon != key.npos) {
        const auto before = key.substr(0, colon);
        if (before == "RATING" || before == "PLAYCOUNT")
            key = before;
    }
    const auto found = std::ranges::lower_bound(spellings, key, {}, &Spelling::key);
    if (found == spellings.end() || found->key != key)
        return std::nullopt;
    return Meaning{found->field, found->rank};
}

void TagFields::fillGapsFrom(const TagFields &other)
{
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        if (m_fields[i].values.isEmpty())
            m_fields[i] = other.m_fields[i];
    }
}

} // namespace trackwise
