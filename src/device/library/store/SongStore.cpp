// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SongStore.h"

#include "device/library/store/Migrations.h"
#include "device/library/tags/FieldNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>

namespace trackwise {

namespace {
// Every value was measured on scans of 100,000 files: a larger cache does not make them faster.
constexpr const char *writerPragmas = R"sql(
PRAGMA synchronous = NORMAL;
PRAGMA foreign_keys = ON;
PRAGMA secure_delete = OFF;
PRAGMA temp_store = MEMORY;
PRAGMA cache_size = -8192;
PRAGMA wal_autocheckpoint = 8000;
PRAGMA journal_size_limit = 33554432;
)sql";

bool makeFolderOf(const QByteArray &path)
{
    return QDir().mkpath(QFileInfo(QFile::decodeName(path)).absolutePath());
}

QByteArray storedOrder(const sqlite::Connection &connection)
{
    sqlite::Statement stored = connection.prepare("SELECT value FROM settings WHERE name = 'text_order'");
    return stored.step() ? stored.text(0).toLatin1() : QByteArray();
}
} // namespace

SongStore::SongStore(QByteArray path, sqlite::Connection connection, const std::optional<QByteArray> &locale)
    : m_path(std::move(path))
    , m_connection(std::move(connection))
    , m_order(locale ? *locale : storedOrder(m_connection))
    , m_writer(m_connection, m_order)
{}

Result<std::unique_ptr<SongStore>> SongStore::open(const QByteArray &path,
                                                   const std::optional<QByteArray> &locale)
try {
    if (!makeFolderOf(path))
        return sqlite::inDatabase(path, {FailureKind::NoSpace, QStringLiteral("its folder cannot be made")});
    sqlite::Connection connection(path, sqlite::Access::ReadWrite);
    connection.execute(writerPragmas);
    if (const Result<Done> migrated = migrate(connection); !migrated)
        return sqlite::inDatabase(path, migrated.failure());
    std::unique_ptr<SongStore> store(new SongStore(path, std::move(connection), locale));
    store->compareOrder(locale.has_value());
    return store;
} catch (const sqlite::Error &error) {
    return sqlite::inDatabase(path, sqlite::asFailure(error));
}

void SongStore::compareOrder(bool isWanted)
{
    const QByteArray stored = storedOrder(m_connection);
    const bool isOther = stored != m_order.name().toLatin1();
    const bool hasSongs = m_connection.integer("SELECT EXISTS (SELECT 1 FROM songs)") != 0;
    m_isSortedOtherwise = hasSongs && isWanted && isOther;
    if (stored.isEmpty() || (!hasSongs && isWanted && isOther))
        noteOrder();
}

void SongStore::noteOrder()
{
    m_connection.prepare("INSERT OR REPLACE INTO settings VALUES ('text_order', ?)")
        .bind(m_order.name())
        .run();
}

Result<Done> SongStore::renewSortKeys(const std::stop_token &stop)
{
    // What is sorted, and by which text.
    static constexpr std::array kinds{
        std::pair("songs", "SELECT id, coalesce(sort_text, title), name FROM songs JOIN files ON song = id"),
        std::pair("artists", "SELECT id, coalesce(sort_text, name), '' FROM artists"),
        std::pair("albums", "SELECT id, coalesce(sort_text, title), '' FROM albums")};
    const std::scoped_lock lock(m_mutex);
    try {
        sqlite::Transaction transaction(m_connection);
        for (const auto &[table, texts] : kinds) {
            sqlite::Statement rows = m_connection.prepare(texts);
            sqlite::Statement renew = m_connection.prepare(
                std::string("UPDATE ") + table +
                " SET sort_key = ?1, section = ?2 WHERE id = ?3 AND (sort_key <> ?1 OR section <> ?2)");
            while (rows.step()) {
                if (stop.stop_requested())
                    return Done{};
                const QString text = rows.isNull(1) ? titleOfFile(rows.bytes(2)) : rows.text(1);
                renew.bindBytes(m_order.sortKey(text))
                    .bind(m_order.section(text))
                    .bind(rows.integer(0))
                    .run();
            }
        }
        noteOrder();
        transaction.commit();
        return Done{};
    } catch (const sqlite::Error &error) {
        return sqlite::asFailure(error);
    }
}

Result<Done> SongStore::inTransaction(const std::function<void()> &change)
{
    const std::scoped_lock lock(m_mutex);
    try {
        sqlite::Transaction transaction(m_connection);
        change();
        transaction.commit();
        return Done{};
    } catch (const sqlite::Error &error) {
        m_writer.forgetFolders();
        return sqlite::inDatabase(m_path, sqlite::asFailure(error));
    }
}

Result<SongStore::Written> SongStore::write(std::span<const ScannedSong> songs,
                                            std::span<const ScanProblem> problems, Instant now,
                                            HeardSounds heard)
{
    Written written;
    const Result<Done> done = inTransaction([&] {
        SongIdentity &identity = m_writer.identity();
        identity.setHeard(std::move(heard));
        while (written.songs < songs.size() && m_writer.write(songs[written.songs], now))
            ++written.songs;
        for (const ScannedSong &song : songs.subspan(written.songs)) // all files at once
            (void)identity.songOf(song, m_writer.folderID(song.file.folder));
        written.unheard = identity.unheard();
        if (written.songs < songs.size())
            return;
        for (const ScanProblem &problem : problems)
            m_writer.writeProblem(problem);
    });
    return done ? Result(std::move(written)) : done.failure();
}

Result<Done> SongStore::setAvailability(std::span<const SongPlace> places, Availability availability)
{
    return inTransaction([&] {
        for (const SongPlace &place : places) {
            if (m_writer.isAt(place.song, place.folder, place.name))
                m_writer.setAvailability(place.song, availability);
        }
    });
}

Result<Done> SongStore::forgetProblems(std::span<const SongPlace> places)
{
    return inTransaction([&] {
        for (const SongPlace &place : places)
            m_writer.forgetProblem(place.folder, place.name);
    });
}

Result<Done> SongStore::writeFolderImages(std::span<const FolderImage> images)
{
    return inTransaction([&] {
        sqlite::Statement albums = m_connection.prepare("SELECT count(DISTINCT coalesce(albums.folded, '')) "
                                                        "FROM files JOIN songs ON songs.id = files.song"
                                                        " LEFT JOIN albums ON albums.id = songs.album_id "
                                                        "WHERE files.folder = ? AND files.availability = 0");
        sqlite::Statement write = m_connection.prepare(
            "UPDATE folders SET image = ?, image_modified = ?, image_key = ? WHERE id = ?");
        for (const FolderImage &image : images) {
            const std::int64_t folder = m_writer.folderID(image.folder);
            const bool isOneAlbum = albums.bind(folder).step() && albums.integer(0) == 1;
            albums.reset();
            write.bindBytes(image.name).bind(image.modified);
            if (isOneAlbum && !image.key.isEmpty())
                write.bindText({image.key.constData(), static_cast<std::size_t>(image.key.size())});
            else
                write.bind(nullptr);
            write.bind(folder).run();
        }
    });
}

Result<Done> SongStore::noteSuspects(std::span<const FileName> files)
{
    return inTransaction([&] {
        sqlite::Statement add = m_connection.prepare("INSERT OR IGNORE INTO suspects VALUES (?, ?)");
        for (const FileName &file : files)
            add.bind(m_writer.folderID(file.folder)).bindBytes(file.name).run();
    });
}

Result<std::vector<FileName>> SongStore::suspects() const
{
    const std::scoped_lock lock(m_mutex);
    try {
        std::vector<FileName> files;
        sqlite::Statement rows = m_connection.prepare(
            "SELECT path, name FROM suspects JOIN folders ON folders.id = suspects.folder");
        while (rows.step())
            files.push_back({rows.bytes(0), rows.bytes(1)});
        return files;
    } catch (const sqlite::Error &error) {
        return sqlite::inDatabase(m_path, sqlite::asFailure(error));
    }
}

Result<Done> SongStore::clearSuspects()
{
    return inTransaction([this] {
        m_connection.execute("DELETE FROM suspects WHERE NOT EXISTS (SELECT 1 FROM problems"
                             " WHERE problems.folder = suspects.folder AND problems.name = suspects.name)");
    });
}

Result<Done> SongStore::checkIsThere() const
{
    const std::scoped_lock lock(m_mutex);
    int hasMoved = 0;
    sqlite3_file_control(m_connection.handle(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    if (hasMoved != 0)
        return Failure{FailureKind::Unreadable,
                       QStringLiteral("the database is not there any more: ") + QFile::decodeName(m_path)};
    return Done{};
}

Result<bool> SongStore::indexNext(int count)
{
    bool isMoreWaiting = false;
    const Result<Done> result =
        inTransaction([&] { isMoreWaiting = m_writer.searchIndex().indexNext(count); });
    return result ? Result<bool>(isMoreWaiting) : Result<bool>(result.failure());
}

Result<bool> SongStore::renewNext(int count)
{
    bool isMoreWaiting = false;
    const Result<Done> result =
        inTransaction([&] { isMoreWaiting = m_writer.searchIndex().renewNext(count); });
    return result ? Result<bool>(isMoreWaiting) : Result<bool>(result.failure());
}

Result<Done> SongStore::changeSong(PersistentID id, const std::function<void(sqlite::Statement &)> &bind,
                                   const char *sql)
{
    bool isKnown = false;
    const Result<Done> result = inTransaction([&] {
        sqlite::Statement change = m_connection.prepare(sql);
        bind(change);
        change.bind(static_cast<std::int64_t>(id.value)).run();
        isKnown = sqlite3_changes(m_connection.handle()) > 0;
    });
    if (result && !isKnown)
        return Failure{FailureKind::NotFound, id.toString()};
    return result;
}

Result<Done> SongStore::recordPlay(PersistentID id, Instant when)
{
    // The library's own count goes on from that of the tags.
    return changeSong(
        id, [when](sqlite::Statement &change) { change.bind(std::int64_t{when.time_since_epoch().count()}); },
        "UPDATE songs SET play_count = coalesce(play_count, tag_play_count, 0) + 1,"
        " last_played = max(coalesce(last_played, 0), ?) WHERE persistent_id = ?");
}

Result<Done> SongStore::recordSkip(PersistentID id)
{
    return changeSong(
        id, [](sqlite::Statement &) {},
        "UPDATE songs SET skip_count = coalesce(skip_count, 0) + 1 WHERE persistent_id = ?");
}

Result<Done> SongStore::visitKnownFiles(const FolderVisitor &folder, const FileVisitor &file) const
{
    const std::scoped_lock lock(m_mutex);
    try {
        sqlite::Statement folders =
            m_connection.prepare("SELECT id, path, image, image_modified FROM folders");
        std::vector<std::int64_t> wanted;
        bool areAllWanted = true;
        while (folders.step()) {
            const std::int64_t id = folders.integer(0);
            if (folder({id, folders.bytes(1), folders.bytes(2), folders.integer(3)}) == FilesOfFolder::Visit)
                wanted.push_back(id);
            else
                areAllWanted = false;
        }

        const auto visit = [&file](sqlite::Statement &statement) {
            while (statement.step()) {
                KnownFile known;
                known.song = SongRowID{statement.integer(0)};
                known.folder = statement.integer(1);
                known.name = statement.utf8(2);
                known.signature = {{static_cast<std::uint64_t>(statement.integer(3)),
                                    static_cast<std::uint64_t>(statement.integer(4))},
                                   statement.integer(5),
                                   statement.integer(6),
                                   statement.integer(7)};
                known.availability = static_cast<Availability>(statement.integer(8));
                known.sidecar = statement.integer(9);
                known.isWorthRetrying = statement.integer(10) != 0;
                file(known);
            }
        };
        constexpr std::int64_t reader = readerVersion;
        constexpr auto unreadable = static_cast<std::int64_t>(FailureKind::Unreadable);
        const std::string songsWhere = "SELECT song, folder, name, device, inode, size, modified, changed,"
                                       " availability, sidecar, reader < ? FROM files WHERE availability < 2";
        const std::string problemsWhere = "SELECT 0, folder, name, 0, inode, size, modified, changed, 0, 0,"
                                          " reader < ? OR kind = ? FROM problems";
        if (areAllWanted) {
            sqlite::Statement songs = m_connection.prepare(songsWhere);
            visit(songs.bind(reader));
            sqlite::Statement problems = m_connection.prepare(problemsWhere);
            visit(problems.bind(reader).bind(unreadable));
            return Done{};
        }
        sqlite::Statement songs = m_connection.prepare(songsWhere + " AND folder = ?");
        sqlite::Statement problems = m_connection.prepare(problemsWhere + " WHERE folder = ?");
        for (const std::int64_t id : wanted) {
            visit(songs.bind(reader).bind(id));
            songs.reset();
            visit(problems.bind(reader).bind(unreadable).bind(id));
            problems.reset();
        }
        return Done{};
    } catch (const sqlite::Error &error) {
        return sqlite::inDatabase(m_path, sqlite::asFailure(error));
    }
}

void SongStore::releaseMemory()
{
    const std::scoped_lock lock(m_mutex);
    sqlite3_db_release_memory(m_connection.handle());
    // Else the end of the program would wait for it. What readers still need is left.
    sqlite3_wal_checkpoint_v2(m_connection.handle(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

} // namespace trackwise
