// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SongLists.h"

#include "device/library/store/SearchIndex.h"
#include "device/library/store/SongRecord.h"
#include "device/library/store/SongSearch.h"

namespace trackwise {

namespace {
using sqlite::Statement;

// As many as anybody scrolls through before typing one more letter.
constexpr int mostMatches = 500;

// The conditions are written as those of the partial indexes, else the indexes would not be used.
constexpr const char *byTitle = "SELECT persistent_id, section FROM songs INDEXED BY songs_in_title_order"
                                " WHERE availability < 2 ORDER BY sort_key, section, persistent_id";
constexpr const char *newestFirst = "SELECT persistent_id FROM songs INDEXED BY songs_by_date_added"
                                    " WHERE availability < 2 ORDER BY date_added DESC, id DESC";
constexpr const char *ofArtist =
    "SELECT persistent_id FROM songs INDEXED BY songs_by_artist_group"
    " LEFT JOIN albums ON albums.id = songs.album_id WHERE artist_id = ? AND availability < 2"
    " ORDER BY album_id IS NULL, albums.sort_key, album_id, disc_number, track_number, songs.sort_key";
constexpr const char *ofAlbum = "SELECT persistent_id FROM songs INDEXED BY songs_by_album_group"
                                " WHERE album_id = ? AND availability < 2"
                                " ORDER BY disc_number, track_number, sort_key";
constexpr const char *songRow =
    "SELECT songs.title, songs.artist, songs.album_title, coalesce(songs.artwork_key, folders.image_key),"
    " songs.is_explicit, songs.availability, files.name FROM songs CROSS JOIN files ON files.song = songs.id"
    " CROSS JOIN folders ON folders.id = files.folder WHERE songs.persistent_id = ?";
constexpr const char *artistsByName =
    "SELECT id, section FROM artists WHERE folded <> ''"
    " AND EXISTS (SELECT 1 FROM songs INDEXED BY songs_by_artist_group"
    "             WHERE songs.artist_id = artists.id AND songs.availability < 2) ORDER BY sort_key, id";
constexpr const char *albumsByTitle =
    "SELECT id, section FROM albums WHERE EXISTS (SELECT 1 FROM songs INDEXED BY songs_by_album_group"
    " WHERE songs.album_id = albums.id AND songs.availability < 2) ORDER BY sort_key, id";
constexpr const char *artistRow =
    "SELECT name, '', (SELECT count(*) FROM songs INDEXED BY songs_by_artist_group"
    " WHERE artist_id = ?1 AND availability < 2) FROM artists WHERE id = ?1";
constexpr const char *albumRow =
    "SELECT title, artist, (SELECT count(*) FROM songs INDEXED BY songs_by_album_group"
    " WHERE album_id = ?1 AND availability < 2) FROM albums WHERE id = ?1";
constexpr const char *artistArtwork =
    "SELECT songs.persistent_id, coalesce(songs.artwork_key, folders.image_key)"
    " FROM songs INDEXED BY songs_by_artist_group CROSS JOIN files ON files.song = songs.id"
    " CROSS JOIN folders ON folders.id = files.folder WHERE artist_id = ? AND songs.availability < 2"
    " AND coalesce(songs.artwork_key, folders.image_key) IS NOT NULL LIMIT 1";
constexpr const char *albumArtwork =
    "SELECT songs.persistent_id, coalesce(songs.artwork_key, folders.image_key)"
    " FROM songs INDEXED BY songs_by_album_group CROSS JOIN files ON files.song = songs.id"
    " CROSS JOIN folders ON folders.id = files.folder WHERE album_id = ? AND songs.availability < 2"
    " AND coalesce(songs.artwork_key, folders.image_key) IS NOT NULL LIMIT 1";

PersistentID identifier(const Statement &row)
{
    return {static_cast<std::uint64_t>(row.integer(0))};
}

GroupKey groupKey(const Statement &row)
{
    return GroupKey{row.integer(0)};
}

std::vector<PersistentID> identifiers(Statement &statement)
{
    std::vector<PersistentID> songs;
    while (statement.step())
        songs.push_back(identifier(statement));
    return songs;
}

/// Reads keys and their letters, and notes where a new letter begins.
template <typename Key>
std::vector<SectionStart> readSections(Statement &statement, std::vector<Key> &keys,
                                       Key (*keyOf)(const Statement &))
{
    std::vector<SectionStart> sections;
    std::string last;
    while (statement.step()) {
        const std::string_view label = statement.utf8(1);
        if (sections.empty() || label != last) {
            last = label;
            sections.push_back({statement.text(1), std::ssize(keys)});
        }
        keys.push_back(keyOf(statement));
    }
    return sections;
}

SongRow readSongRow(ReadConnection &connection, PersistentID id)
{
    Statement &statement = connection.statement(songRow);
    SongRow row{id, {}, {}, {}, {}, false, false};
    if (!statement.bind(static_cast<std::int64_t>(id.value)).step())
        return row;
    row.title = statement.text(0);
    if (row.title.isEmpty()) // the name of the file says more than nothing
        row.title = titleOfFile(statement.bytes(6));
    row.artist = statement.text(1);
    row.album = statement.text(2);
    row.artworkKey = statement.text(3);
    row.isExplicit = statement.integer(4) != 0;
    row.isAvailable = static_cast<Availability>(statement.integer(5)) == Availability::Available;
    return row;
}

GroupRow readGroupRow(ReadConnection &connection, GroupKey key, const char *rowSql, const char *artworkSql)
{
    GroupRow row;
    row.key = key;
    Statement &statement = connection.statement(rowSql);
    if (statement.bind(static_cast<std::int64_t>(key)).step()) {
        row.name = statement.text(0);
        row.artist = statement.text(1);
        row.songCount = static_cast<int>(statement.integer(2));
    }
    Statement &artwork = connection.statement(artworkSql);
    if (artwork.bind(static_cast<std::int64_t>(key)).step()) {
        row.artworkSong = identifier(artwork);
        row.artworkKey = artwork.text(1);
    }
    return row;
}

/// A row for each key, in their order; empty ones where the library cannot be read.
template <typename Row, typename Key, typename Read>
std::vector<Row> rowsOf(const ConnectionPool &connections, std::span<const Key> keys, Read readRow)
{
    return connections
        .read([&](ReadConnection &connection) {
            std::vector<Row> rows;
            rows.reserve(keys.size());
            for (const Key key : keys)
                rows.push_back(readRow(connection, key));
            return rows;
        })
        .valueOr(std::vector<Row>(keys.size()));
}

std::vector<GroupRow> groupRows(const ConnectionPool &connections, std::span<const GroupKey> keys,
                                const char *rowSql, const char *artworkSql)
{
    return rowsOf<GroupRow>(connections, keys, [=](ReadConnection &connection, GroupKey key) {
        return readGroupRow(connection, key, rowSql, artworkSql);
    });
}

GroupIndex groups(const ConnectionPool &connections, const char *sql)
{
    return connections
        .read([sql](ReadConnection &connection) {
            GroupIndex index;
            index.sections = readSections(connection.statement(sql), index.groups, groupKey);
            return index;
        })
        .valueOr({});
}
} // namespace

qsizetype SongLists::songCount() const
{
    return m_connections
        .read([](ReadConnection &connection) {
            Statement &statement = connection.statement(
                "SELECT count(*) FROM songs INDEXED BY songs_by_artist_group WHERE availability < 2");
            return statement.step() ? static_cast<qsizetype>(statement.integer(0)) : 0;
        })
        .valueOr(0);
}

SongIndex SongLists::songs(const SongScope &scope) const
{
    return m_connections
        .read([&scope](ReadConnection &connection) -> SongIndex {
            const auto group = static_cast<std::int64_t>(scope.group);
            switch (scope.kind) {
            case SongScope::Kind::All: {
                SongIndex index;
                index.sections = readSections(connection.statement(byTitle), index.songs, identifier);
                return index;
            }
            case SongScope::Kind::RecentlyAdded:
                return {identifiers(connection.statement(newestFirst)), {}};
            case SongScope::Kind::OfArtist:
                return {identifiers(connection.statement(ofArtist).bind(group)), {}};
            case SongScope::Kind::OfAlbum:
                return {identifiers(connection.statement(ofAlbum).bind(group)), {}};
            case SongScope::Kind::Matching:
                return {searchSongs(connection, scope.searchText, mostMatches), {}};
            }
            return {};
        })
        .valueOr({});
}

std::vector<SongRow> SongLists::songRows(std::span<const PersistentID> songs) const
{
    return rowsOf<SongRow>(m_connections, songs, readSongRow);
}

GroupIndex SongLists::artists() const
{
    return groups(m_connections, artistsByName);
}

GroupIndex SongLists::albums() const
{
    return groups(m_connections, albumsByTitle);
}

std::vector<GroupRow> SongLists::artistRows(std::span<const GroupKey> artists) const
{
    return groupRows(m_connections, artists, artistRow, artistArtwork);
}

std::vector<GroupRow> SongLists::albumRows(std::span<const GroupKey> albums) const
{
    return groupRows(m_connections, albums, albumRow, albumArtwork);
}

} // namespace trackwise
