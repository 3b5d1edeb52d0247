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

/// Notes where in a list a new letter begins.
class Sections
{
public:
    void add(std::string_view label, qsizetype row)
    {
        if (m_starts.empty() || label != m_last) {
            m_last = label;
            m_starts.push_back({QString::fromUtf8(label.data(), static_cast<qsizetype>(label.size())), row});
        }
    }
    [[nodiscard]] std::vector<SectionStart> starts() && { return std::move(m_starts); }

private:
    std::string m_last;
    std::vector<SectionStart> m_starts;
};

std::vector<PersistentID> identifiers(Statement &statement)
{
    std::vector<PersistentID> songs;
    while (statement.step())
        songs.push_back(identifier(statement));
    return songs;
}

SongIndex songsByTitle(ReadConnection &connection)
{
    Statement &statement = connection.statement(byTitle);
    SongIndex index;
    Sections sections;
    while (statement.step()) {
        sections.add(statement.utf8(1), std::ssize(index.songs));
        index.songs.push_back(identifier(statement));
    }
    index.sections = std::move(sections).starts();
    return index;
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

GroupIndex groups(ReadConnection &connection, const char *sql)
{
    Statement &statement = connection.statement(sql);
    GroupIndex index;
    Sections sections;
    while (statement.step()) {
        sections.add(statement.utf8(1), std::ssize(index.groups));
        index.groups.push_back(GroupKey{statement.integer(0)});
    }
    index.sections = std::move(sections).starts();
    return index;
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

std::vector<GroupRow> groupRows(const ConnectionPool &connections, std::span<const GroupKey> keys,
                                const char *rowSql, const char *artworkSql)
{
    return connections
        .read([&](ReadConnection &connection) {
            std::vector<GroupRow> rows;
            rows.reserve(keys.size());
            for (const GroupKey key : keys)
                rows.push_back(readGroupRow(connection, key, rowSql, artworkSql));
            return rows;
        })
        .valueOr(std::vector<GroupRow>(keys.size()));
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
            case SongScope::Kind::All:
                return songsByTitle(connection);
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
    return m_connections
        .read([songs](ReadConnection &connection) {
            std::vector<SongRow> rows;
            rows.reserve(songs.size());
            for (const PersistentID id : songs)
                rows.push_back(readSongRow(connection, id));
            return rows;
        })
        .valueOr(std::vector<SongRow>(songs.size()));
}

GroupIndex SongLists::artists() const
{
    return m_connections.read([](ReadConnection &connection) { return groups(connection, artistsByName); })
        .valueOr({});
}

GroupIndex SongLists::albums() const
{
    return m_connections.read([](ReadConnection &connection) { return groups(connection, albumsByTitle); })
        .valueOr({});
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
