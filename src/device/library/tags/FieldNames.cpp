// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/FieldNames.h"

#include "device/library/tags/Id3Frames.h"

#include <algorithm>
#include <array>

namespace trackwise {

namespace {
using Take = PlainText::Take;
using Kind = Mp4Atom::Kind;

constexpr std::array texts = {
    PlainText{Field::Title, Take::First, &SongTags::title},
    PlainText{Field::Album, Take::First, &SongTags::albumTitle},
    PlainText{Field::AlbumArtist, Take::All, &SongTags::albumArtist},
    PlainText{Field::Composer, Take::All, &SongTags::composer},
    PlainText{Field::Grouping, Take::All, &SongTags::grouping},
    PlainText{Field::Comments, Take::First, &SongTags::comments},
    PlainText{Field::TitleSort, Take::First, &SongTags::titleSort},
    PlainText{Field::ArtistSort, Take::First, &SongTags::artistSort},
    PlainText{Field::AlbumSort, Take::First, &SongTags::albumSort},
    PlainText{Field::AlbumArtistSort, Take::First, &SongTags::albumArtistSort},
    PlainText{Field::CatalogID, Take::First, &SongTags::catalogID},
    PlainText{Field::RecordingMBID, Take::First, &SongTags::recordingMBID},
};

// Each table is in the order of its names, in which they are looked for.

constexpr std::array freeForm = {
    FieldName{"ALBUM", Field::Album},
    FieldName{"ALBUM ARTIST", Field::AlbumArtist, 1},
    FieldName{"ALBUMARTIST", Field::AlbumArtist},
    FieldName{"ALBUMARTISTSORT", Field::AlbumArtistSort},
    FieldName{"ALBUMSORT", Field::AlbumSort},
    FieldName{"ALBUM_ARTIST", Field::AlbumArtist, 2},
    FieldName{"ARTIST", Field::Artist},
    FieldName{"ARTISTSORT", Field::ArtistSort},
    FieldName{"BPM", Field::BeatsPerMinute},
    FieldName{"COMMENT", Field::Comments},
    FieldName{"COMMENTS", Field::Comments, 1},
    FieldName{"COMPILATION", Field::Compilation},
    FieldName{"COMPOSER", Field::Composer},
    FieldName{"CONTENT GROUP", Field::Grouping, 2},
    FieldName{"CONTENTGROUP", Field::Grouping, 1},
    FieldName{"DATE", Field::ReleaseDate},
    FieldName{"DESCRIPTION", Field::Comments, 1},
    FieldName{"DISC", Field::Disc, 1},
    FieldName{"DISCNUMBER", Field::Disc},
    FieldName{"DISCTOTAL", Field::DiscCount},
    FieldName{"FMPS/PLAYCOUNT", Field::PlayCount},
    FieldName{"FMPS/RATING", Field::RatingFraction},
    FieldName{"FMPS_PLAYCOUNT", Field::PlayCount},
    FieldName{"FMPS_RATING", Field::RatingFraction},
    FieldName{"GENRE", Field::Genre},
    FieldName{"GROUPING", Field::Grouping},
    FieldName{"ITUNESADVISORY", Field::Advisory},
    FieldName{"ITUNESCATALOGID", Field::CatalogID},
    FieldName{"LYRICS", Field::Lyrics},
    FieldName{"MUSICBRAINZ TRACK ID", Field::RecordingMBID, 1},
    FieldName{"MUSICBRAINZ/TRACK ID", Field::RecordingMBID, 1},
    FieldName{"MUSICBRAINZ_TRACKID", Field::RecordingMBID},
    FieldName{"PLAYCOUNT", Field::PlayCount, 1},
    FieldName{"RATING", Field::RatingLoose},
    FieldName{"RECORDED DATE", Field::ReleaseDate, 3},
    FieldName{"RELEASEDATE", Field::ReleaseDate, 1},
    FieldName{"SYNCEDLYRICS", Field::SyncedLyrics},
    FieldName{"TEMPO", Field::BeatsPerMinute, 1},
    FieldName{"TITLE", Field::Title},
    FieldName{"TITLESORT", Field::TitleSort},
    FieldName{"TOTALDISCS", Field::DiscCount, 1},
    FieldName{"TOTALTRACKS", Field::TrackCount, 1},
    FieldName{"TRACK", Field::Track, 1},
    FieldName{"TRACK NUMBER", Field::Track, 2},
    FieldName{"TRACKNUMBER", Field::Track},
    FieldName{"TRACKTOTAL", Field::TrackCount},
    FieldName{"UNSYNCED LYRICS", Field::Lyrics, 2},
    FieldName{"UNSYNCEDLYRICS", Field::Lyrics, 1},
    FieldName{"YEAR", Field::ReleaseDate, 2},
};

constexpr std::array id3TextFrames = {
    FieldName{"GRP1", Field::Grouping},
    FieldName{"TALB", Field::Album},
    FieldName{"TBPM", Field::BeatsPerMinute},
    FieldName{"TCMP", Field::Compilation},
    FieldName{"TCOM", Field::Composer},
    FieldName{"TDRC", Field::ReleaseDate, 1},
    FieldName{"TDRL", Field::ReleaseDate},
    FieldName{id3GenreFrame, Field::Genre},
    FieldName{"TIT1", Field::Grouping, 1},
    FieldName{"TIT2", Field::Title},
    FieldName{"TPE1", Field::Artist},
    FieldName{"TPE2", Field::AlbumArtist},
    FieldName{"TPOS", Field::Disc},
    FieldName{"TRCK", Field::Track},
    FieldName{"TSO2", Field::AlbumArtistSort},
    FieldName{"TSOA", Field::AlbumSort},
    FieldName{"TSOP", Field::ArtistSort},
    FieldName{"TSOT", Field::TitleSort},
};

constexpr std::array asfNames = {
    FieldName{"AUTHOR", Field::Artist},
    FieldName{"WM/ALBUMARTIST", Field::AlbumArtist},
    FieldName{"WM/ALBUMARTISTSORTORDER", Field::AlbumArtistSort},
    FieldName{"WM/ALBUMSORTORDER", Field::AlbumSort},
    FieldName{"WM/ALBUMTITLE", Field::Album},
    FieldName{"WM/ARTISTSORTORDER", Field::ArtistSort},
    FieldName{"WM/BEATSPERMINUTE", Field::BeatsPerMinute},
    FieldName{"WM/COMPOSER", Field::Composer},
    FieldName{"WM/CONTENTGROUPDESCRIPTION", Field::Grouping},
    FieldName{"WM/GENRE", Field::Genre},
    FieldName{"WM/ISCOMPILATION", Field::Compilation},
    FieldName{"WM/LYRICS", Field::Lyrics},
    FieldName{"WM/PARENTALRATING", Field::Advisory, 20},
    FieldName{"WM/PARTOFSET", Field::Disc},
    FieldName{"WM/TITLESORTORDER", Field::TitleSort},
    FieldName{"WM/TRACKNUMBER", Field::Track},
    FieldName{"WM/YEAR", Field::ReleaseDate},
};

constexpr std::array riffInfo = {
    FieldName{"INAM", Field::Title},    FieldName{"IART", Field::Artist},
    FieldName{"IPRD", Field::Album},    FieldName{"ICMT", Field::Comments},
    FieldName{"IGNR", Field::Genre},    FieldName{"ICRD", Field::ReleaseDate},
    FieldName{"IPRT", Field::Track},    FieldName{"ITRK", Field::Track, 1},
    FieldName{"IMUS", Field::Composer},
};

constexpr std::array mp4Atoms = {
    Mp4Atom{"aART", Kind::Text, Field::AlbumArtist},
    Mp4Atom{"cnID", Kind::UInt, Field::CatalogID},
    Mp4Atom{"cpil", Kind::Bool, Field::Compilation},
    Mp4Atom{"disk", Kind::Pair, Field::Disc, Field::DiscCount},
    Mp4Atom{"rate", Kind::Text, Field::RatingPercent},
    Mp4Atom{"rtng", Kind::Byte, Field::Advisory},
    Mp4Atom{"soaa", Kind::Text, Field::AlbumArtistSort},
    Mp4Atom{"soal", Kind::Text, Field::AlbumSort},
    Mp4Atom{"soar", Kind::Text, Field::ArtistSort},
    Mp4Atom{"sonm", Kind::Text, Field::TitleSort},
    Mp4Atom{"tmpo", Kind::Int, Field::BeatsPerMinute},
    Mp4Atom{"trkn", Kind::Pair, Field::Track, Field::TrackCount},
    Mp4Atom{"\251ART", Kind::Text, Field::Artist},
    Mp4Atom{"\251alb", Kind::Text, Field::Album},
    Mp4Atom{"\251cmt", Kind::Text, Field::Comments},
    Mp4Atom{"\251day", Kind::Text, Field::ReleaseDate},
    Mp4Atom{"\251gen", Kind::Text, Field::Genre},
    Mp4Atom{"\251grp", Kind::Text, Field::Grouping},
    Mp4Atom{"\251lyr", Kind::Text, Field::Lyrics},
    Mp4Atom{"\251nam", Kind::Text, Field::Title},
    Mp4Atom{"\251wrt", Kind::Text, Field::Composer},
};

static_assert(std::ranges::is_sorted(freeForm, {}, &FieldName::name));
static_assert(std::ranges::is_sorted(id3TextFrames, {}, &FieldName::name));
static_assert(std::ranges::is_sorted(asfNames, {}, &FieldName::name));
static_assert(std::ranges::is_sorted(mp4Atoms, {}, &Mp4Atom::name));

template <typename Table>
std::optional<typename Table::value_type> named(std::string_view name, const Table &table)
{
    const auto found = std::ranges::lower_bound(table, name, {}, &Table::value_type::name);
    return found != table.end() && found->name == name ? std::optional(*found) : std::nullopt;
}
} // namespace

std::span<const PlainText> plainTexts()
{
    return texts;
}

std::optional<FieldName> freeFormName(std::string_view key)
{
    // Some players add the rater to the key: "RATING:someone@example.org".
    if (const auto colon = key.find(':'); colon != key.npos) {
        const auto before = key.substr(0, colon);
        if (before == "RATING" || before == "PLAYCOUNT")
            key = before;
    }
    return named(key, freeForm);
}

std::optional<FieldName> id3FrameName(std::string_view id)
{
    return named(id, id3TextFrames);
}

std::optional<FieldName> asfName(std::string_view key)
{
    return named(key, asfNames);
}

std::span<const FieldName> riffInfoNames()
{
    return riffInfo;
}

std::optional<Mp4Atom> mp4Atom(std::string_view name)
{
    return named(name, mp4Atoms);
}

} // namespace trackwise
