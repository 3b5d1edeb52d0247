// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SongLookup.h"

#include "device/library/store/FilePaths.h"
#include "device/library/store/SearchWords.h"
#include "device/library/store/SongColumns.h"
#include "device/library/store/TextFolding.h"
#include "device/library/tags/FileArtwork.h"

#include <cmath>

namespace trackwise {

namespace {
using sqlite::Statement;

// What is read of a song, before songColumns(): what the library itself keeps and makes, and where the file
// is.
constexpr const char *ownColumns =
    "songs.persistent_id, songs.last_played, songs.date_added,"
    " coalesce(songs.play_count, songs.tag_play_count, 0), coalesce(songs.skip_count, 0),"
    " long_texts.comments, long_texts.lyrics, songs.artwork_key, folders.path, files.name, folders.image,"
    " folders.image_key, songs.availability";
constexpr int ownColumnCount = 13;

/// The question for songs as readSong() takes them: @p songs is the table and how to look into it.
std::string selectSong(const std::string &songs, const std::string &rest)
{
    std::string sql = std::string("SELECT ") + ownColumns;
    for (const SongColumn &column : songColumns()) {
        if (column.read)
            sql.append(", songs.").append(column.name);
    }
    return sql + " FROM " + songs +
           " CROSS JOIN files ON files.song = songs.id"
           " CROSS JOIN folders ON folders.id = files.folder"
           " LEFT JOIN long_texts ON long_texts.song = songs.id " +
           rest;
}

std::optional<Instant> instant(const Statement &row, int column)
{
    const auto milliseconds = row.optionalInteger(column);
    return milliseconds ? std::optional(Instant(std::chrono::milliseconds(*milliseconds))) : std::nullopt;
}

ArtworkPtr artwork(const Statement &row, int embeddedKey, const FileName &file, int imageName, int imageKey)
{
    using Place = ArtworkSummary::Place;
    if (!row.isNull(embeddedKey))
        return FileArtwork::fromSummary({Place::Embedded, file.path(), row.bytes(embeddedKey)});
    if (!row.isNull(imageKey))
        return FileArtwork::fromSummary(
            {Place::FolderImage, FileName{file.folder, row.bytes(imageName)}.path(), row.bytes(imageKey)});
    return nullptr;
}

LibrarySong readSong(const Statement &row)
{
    LibrarySong song;
    MediaItem &item = song.item;
    item.persistentID = {static_cast<std::uint64_t>(row.integer(0))};
    item.lastPlayedDate = instant(row, 1);
    item.dateAddedForReal = instant(row, 2);
    item.playCount = static_cast<unsigned>(row.integer(3));
    item.skipCount = static_cast<unsigned>(row.integer(4));
    item.comments = row.optionalText(5);
    item.lyrics = row.optionalText(6);
    song.file = {row.bytes(8), row.bytes(9)};
    item.artwork = artwork(row, 7, song.file, 10, 11);
    song.availability = static_cast<Availability>(row.integer(12));
    int column = ownColumnCount;
    for (const SongColumn &kept : songColumns()) {
        if (kept.read)
            kept.read(item, row, column++);
    }
    return song;
}

// A song whose file is gone is kept for the day on which it comes back, and answers no look-up until then.
#define IN_LIBRARY " AND songs.availability < 2 ORDER BY songs.availability, songs.id "

const std::string byTitleAndArtist = selectSong("songs INDEXED BY songs_by_title_and_artist",
                                                "WHERE title_key = ? AND artist_key = ?" IN_LIBRARY);
const std::string byTitleAndAlbum = selectSong("songs INDEXED BY songs_by_title_and_album",
                                               "WHERE title_key = ? AND album_key = ?" IN_LIBRARY);
const std::string byTitle =
    selectSong("songs INDEXED BY songs_by_title_and_artist", "WHERE title_key = ?" IN_LIBRARY);
const std::string byIdentifier = selectSong("songs", "WHERE songs.persistent_id = ?");
const std::string withAvailability =
    selectSong("songs", "WHERE songs.availability = ? ORDER BY songs.id"); // all of them, so not sorted
const std::string allSongs = selectSong("songs", "ORDER BY songs.id");

bool hasAllOf(const MediaItem &item, const SongQuery &query)
{
    return (!query.title || item.title == query.title) && (!query.artist || item.artist == query.artist) &&
           (!query.albumTitle || item.albumTitle == query.albumTitle);
}

constexpr const char *candidatesFrom =
    "SELECT songs.persistent_id, coalesce(songs.title, ''), coalesce(songs.artist, ''),"
    " coalesce(songs.album_artist, ''), coalesce(songs.album_title, ''), songs.duration"
    " FROM (SELECT song FROM search_texts WHERE title >= ? AND title < ? ORDER BY title LIMIT ?) found"
    " CROSS JOIN songs ON songs.id = found.song ORDER BY songs.availability, songs.id";

SongCandidate readCandidate(const Statement &row)
{
    return {{static_cast<std::uint64_t>(row.integer(0))},
            folded(row.text(1)),
            folded(row.text(2)),
            folded(row.text(3)),
            folded(row.text(4)),
            std::chrono::milliseconds(std::llround(row.real(5) * 1000))};
}

// Several titles have the same words but for punctuation; this many are compared letter by letter.
constexpr std::int64_t mostCompared = 500;
} // namespace

std::optional<LibrarySong> SongLookup::song(PersistentID id) const
{
    Statement &statement = m_connection.statement(byIdentifier.c_str());
    statement.bind(static_cast<std::int64_t>(id.value));
    return statement.step() ? std::optional(readSong(statement)) : std::nullopt;
}

std::optional<LibrarySong> SongLookup::songAt(const QByteArray &path) const
{
    const auto id = idOfPath(path);
    return id ? song(*id) : std::nullopt;
}

std::vector<MediaItem> SongLookup::songs(const SongQuery &query, int limit) const
{
    std::vector<MediaItem> found;
    const auto takeFrom = [&](Statement &statement) {
        while (std::ssize(found) < limit && statement.step()) {
            MediaItem item = readSong(statement).item;
            if (hasAllOf(item, query))
                found.push_back(std::move(item));
        }
    };
    if (!query.title) {
        for (const Availability availability : {Availability::Available, Availability::DiskAbsent})
            takeFrom(m_connection.statement(withAvailability.c_str())
                         .bind(static_cast<std::int64_t>(availability)));
    } else if (query.artist) {
        takeFrom(m_connection.statement(byTitleAndArtist.c_str())
                     .bind(caselessKey(*query.title))
                     .bind(caselessKey(*query.artist)));
    } else if (query.albumTitle) {
        takeFrom(m_connection.statement(byTitleAndAlbum.c_str())
                     .bind(caselessKey(*query.title))
                     .bind(caselessKey(*query.albumTitle)));
    } else {
        takeFrom(m_connection.statement(byTitle.c_str()).bind(caselessKey(*query.title)));
    }
    return found;
}

std::optional<MediaItem> SongLookup::songIgnoringCase(const QString &title, const QString &artist) const
{
    Statement &statement = m_connection.statement(byTitleAndArtist.c_str());
    statement.bind(caselessKey(title)).bind(caselessKey(artist));
    const QString wantedTitle = withoutCase(title);
    const QString wantedArtist = withoutCase(artist);
    while (statement.step()) {
        MediaItem item = readSong(statement).item;
        if (withoutCase(item.title.value_or(QString())) == wantedTitle &&
            withoutCase(item.artist.value_or(QString())) == wantedArtist)
            return item;
    }
    return std::nullopt;
}

std::optional<MediaItem> SongLookup::songWithCatalogID(const QString &identifier) const
{
    const auto id = idOfCatalogID(identifier);
    const auto found = id ? song(*id) : std::nullopt;
    return found ? std::optional(found->item) : std::nullopt;
}

std::optional<PersistentID> SongLookup::firstID(Statement &statement)
{
    return statement.step() ? std::optional(PersistentID{static_cast<std::uint64_t>(statement.integer(0))})
                            : std::nullopt;
}

std::optional<PersistentID> SongLookup::idOfPath(const QByteArray &path) const
{
    const auto songAt = [this](const FileName &file) {
        Statement &statement = m_connection.statement(
            "SELECT persistent_id FROM folders CROSS JOIN files ON files.folder = folders.id"
            " JOIN songs ON songs.id = files.song WHERE folders.path = ? AND files.name = ?" IN_LIBRARY
            "LIMIT 1");
        return firstID(statement.bindBytes(file.folder).bindBytes(file.name));
    };
    if (const auto id = songAt(FileName::ofPath(path)))
        return id;
    const QByteArray target = resolvedPath(path);
    return target.isEmpty() || target == path ? std::nullopt : songAt(FileName::ofPath(target));
}

std::optional<PersistentID> SongLookup::idOfFile(FileIdentity file) const
{
    Statement &statement =
        m_connection.statement("SELECT persistent_id FROM files JOIN songs ON songs.id = files.song"
                               " WHERE inode = ? AND device = ?" IN_LIBRARY "LIMIT 1");
    statement.bind(static_cast<std::int64_t>(file.inode)).bind(static_cast<std::int64_t>(file.device));
    return firstID(statement);
}

std::optional<PersistentID> SongLookup::idOfCatalogID(const QString &identifier) const
{
    return firstID(
        m_connection.statement("SELECT persistent_id FROM songs WHERE catalog_id = ?" IN_LIBRARY "LIMIT 1")
            .bind(identifier));
}

std::optional<PersistentID> SongLookup::idOfRecording(const QString &lowerCaseMBID) const
{
    return firstID(
        m_connection
            .statement("SELECT persistent_id FROM songs WHERE recording_mbid = ?" IN_LIBRARY "LIMIT 1")
            .bind(lowerCaseMBID));
}

template <typename Fits>
std::vector<SongCandidate> SongLookup::candidates(const QString &folded, char end, int limit, Fits fits) const
{
    const std::string words = searchText(folded);
    Statement &statement = m_connection.statement(candidatesFrom);
    statement.bindText(words).bindText(words + end).bind(mostCompared);
    std::vector<SongCandidate> found;
    while (std::ssize(found) < limit && statement.step()) {
        SongCandidate candidate = readCandidate(statement);
        if (fits(candidate.foldedTitle))
            found.push_back(std::move(candidate));
    }
    return found;
}

std::vector<SongCandidate> SongLookup::songsTitled(const QString &foldedTitle, int limit) const
{
    // The words alone, or with others behind a line feed: what has more words has a blank there.
    return candidates(foldedTitle, '\x0b', limit,
                      [&](const QString &candidate) { return candidate == foldedTitle; });
}

std::vector<SongCandidate> SongLookup::songsWithTitlePrefix(const QString &foldedPrefix, int limit) const
{
    return candidates(foldedPrefix, '\xff', limit,
                      [&](const QString &candidate) { return candidate.startsWith(foldedPrefix); });
}

void SongLookup::visitSongs(const std::function<bool(const LibrarySong &)> &visit) const
{
    Statement &statement = m_connection.statement(allSongs.c_str());
    while (statement.step()) {
        if (!visit(readSong(statement)))
            return;
    }
}

} // namespace trackwise
