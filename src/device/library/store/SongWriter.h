// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SearchIndex.h"
#include "device/library/store/SongIdentity.h"
#include "device/library/store/SongRecord.h"
#include "device/library/store/TextOrder.h"

#include <memory>
#include <random>

namespace trackwise {

/// The statements that write songs. Used inside transactions, by one thread at a time.
class SongWriter
{
public:
    SongWriter(const sqlite::Connection &connection, const TextOrder &order);
    ~SongWriter();

    /// Adds the song or updates the one that it is. Counts, dates and identifiers that the library keeps
    /// are left as they are. @p now: the date added of a new song. False where that hangs on the sound of
    /// other files: they are among identity().unheard() then, and nothing is written.
    [[nodiscard]] bool write(const ScannedSong &scanned, Instant now);
    void writeProblem(const ScanProblem &problem);
    void forgetProblem(std::int64_t folderID, const QByteArray &name);
    [[nodiscard]] bool isAt(SongRowID song, std::int64_t folderID, const QByteArray &name);
    void setAvailability(SongRowID song, Availability availability);

    [[nodiscard]] std::int64_t folderID(const QByteArray &path);
    /// To be called when a transaction was rolled back: folders that it made are not there.
    void forgetFolders() { m_lastFolder = {}; }
    [[nodiscard]] SongIdentity &identity() { return m_identity; }
    [[nodiscard]] SearchIndex &searchIndex() { return m_searchIndex; }

private:
    [[nodiscard]] SongRowID add(const ScannedSong &scanned, Instant now);
    [[nodiscard]] std::uint64_t newPersistentID();
    void bindTags(sqlite::Statement &statement, const ScannedSong &scanned);
    void writeFile(SongRowID song, const ScannedSong &scanned, std::int64_t folder);
    void writeLongTexts(SongRowID song, const SongTags &tags);
    [[nodiscard]] std::optional<std::int64_t> knownGroup(sqlite::Statement &find, sqlite::Statement &sort,
                                                         const std::optional<QString> &sortName);
    [[nodiscard]] std::int64_t artistID(const SongTags &tags);
    [[nodiscard]] std::optional<std::int64_t> albumID(const SongTags &tags);

    const sqlite::Connection &m_connection;
    const TextOrder &m_order;
    SongIdentity m_identity;
    SearchIndex m_searchIndex;
    std::mt19937_64 m_random;
    struct
    {
        QByteArray path;
        std::int64_t id = 0;
    } m_lastFolder;
    struct Statements;
    std::unique_ptr<Statements> m_statements;
};

} // namespace trackwise
