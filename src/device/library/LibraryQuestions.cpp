// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryQuestions.h"

#include "device/library/store/Migrations.h"
#include "device/library/store/SongSearch.h"
#include "device/library/store/SongStore.h"

#include <QFile>

namespace trackwise {

namespace {
Result<LibrarySong> found(Result<std::optional<LibrarySong>> song)
{
    if (!song)
        return song.failure();
    if (!*song)
        return Failure{FailureKind::NotFound, QStringLiteral("no such song")};
    return **std::move(song);
}

/// The hash of the sound; where a file gives none, what changes with it.
std::uint64_t stampOf(std::uint64_t hash, std::uint64_t size, std::uint64_t modified)
{
    constexpr std::uint64_t odd = 0x9e3779b97f4a7c15; // spreads what is multiplied with it over all bits
    return hash != 0 ? hash : (size * odd ^ modified) * odd | 1;
}

Result<Done> schemaAt(const QByteArray &path)
try {
    return checkSchema(sqlite::Connection(path, sqlite::Access::ReadOnly));
} catch (const sqlite::Error &error) {
    return sqlite::asFailure(error);
}
} // namespace

Result<std::unique_ptr<LibraryQuestions>> LibraryQuestions::open(const QByteArray &path)
{
    if (!QFile::exists(QFile::decodeName(path)))
        return sqlite::inDatabase(path, {FailureKind::NotFound, QStringLiteral("there is no library")});
    const Result<Done> schema = schemaAt(path);
    if (!schema && schema.failure().kind == FailureKind::Busy) {
        if (const auto updated = SongStore::open(path); !updated)
            return updated.failure();
    } else if (!schema) {
        return sqlite::inDatabase(path, schema.failure());
    }
    return std::unique_ptr<LibraryQuestions>(new LibraryQuestions(path));
}

Result<LibraryStatus> LibraryQuestions::status() const
{
    return m_connections.read([](ReadConnection &connection) {
        LibraryStatus status;
        auto &songs = connection.statement("SELECT availability, count(*) FROM files GROUP BY availability");
        while (songs.step()) {
            const auto count = static_cast<qsizetype>(songs.integer(1));
            switch (static_cast<Availability>(songs.integer(0))) {
            case Availability::Available:
                status.available = count;
                break;
            case Availability::DiskAbsent:
                status.diskAbsent = count;
                break;
            case Availability::FileGone:
                status.fileGone = count;
                break;
            }
        }
        auto &problems = connection.statement("SELECT count(*) FROM problems");
        status.problems = problems.step() ? static_cast<qsizetype>(problems.integer(0)) : 0;
        return status;
    });
}

Result<std::vector<ScanProblem>> LibraryQuestions::problems() const
{
    return m_connections.read([](ReadConnection &connection) {
        auto &row = connection.statement(
            "SELECT folders.path, name, inode, size, modified, kind, reason FROM problems"
            " JOIN folders ON folders.id = problems.folder ORDER BY folders.path, name");
        std::vector<ScanProblem> problems;
        while (row.step()) {
            problems.push_back(
                {{row.bytes(0), row.bytes(1)},
                 {{0, static_cast<std::uint64_t>(row.integer(2))}, row.integer(3), row.integer(4)},
                 static_cast<FailureKind>(row.integer(5)),
                 row.text(6)});
        }
        return problems;
    });
}

Result<LibrarySong> LibraryQuestions::songForPath(const QByteArray &path) const
{
    return found(
        m_connections.read([&](ReadConnection &connection) { return SongLookup(connection).songAt(path); }));
}

Result<LibrarySong> LibraryQuestions::song(PersistentID id) const
{
    return found(
        m_connections.read([id](ReadConnection &connection) { return SongLookup(connection).song(id); }));
}

Result<std::vector<PersistentID>> LibraryQuestions::search(const QString &typed, int limit) const
{
    return m_connections.read(
        [&](ReadConnection &connection) { return searchSongs(connection, typed, limit); });
}

Result<Done> LibraryQuestions::forEachSong(const std::function<bool(const LibrarySong &)> &visit) const
{
    return m_connections.read([&](ReadConnection &connection) {
        SongLookup(connection).visitSongs(visit);
        return Done{};
    });
}

Result<std::vector<SongSound>> LibraryQuestions::sounds() const
{
    return m_connections.read([](ReadConnection &connection) {
        auto &row =
            connection.statement("SELECT persistent_id, audio_hash, size, modified, files.availability"
                                 " FROM songs JOIN files ON files.song = songs.id ORDER BY songs.id");
        std::vector<SongSound> sounds;
        const auto number = [&row](int column) { return static_cast<std::uint64_t>(row.integer(column)); };
        while (row.step()) {
            sounds.push_back({{number(0)},
                              stampOf(number(1), number(2), number(3)),
                              static_cast<Availability>(row.integer(4))});
        }
        return sounds;
    });
}

} // namespace trackwise
