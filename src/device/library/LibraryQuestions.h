// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/ConnectionPool.h"
#include "device/library/store/SongLookup.h"
#include "device/library/store/SongRecord.h"
#include "platform/Result.h"

#include <functional>
#include <memory>
#include <vector>

namespace trackwise {

/// How many songs the library knows, and of what kind.
struct LibraryStatus
{
    qsizetype available = 0;
    qsizetype diskAbsent = 0;
    qsizetype fileGone = 0;
    qsizetype problems = 0;
};

/// How the file of a song sounds, without listening to it.
struct SongSound
{
    PersistentID song;
    std::uint64_t stamp = 0; ///< of another sound another one
    Availability availability = Availability::Available;
};

/// What can be asked of a library without changing it. Any thread. Every answer is whole, or a failure that
/// names the database file.
class LibraryQuestions
{
public:
    /// Opens a library that is there, and makes no file; one of an earlier version is brought up to date.
    /// Failures: NotFound (no database, or an empty one), else as SongStore::open().
    [[nodiscard]] static Result<std::unique_ptr<LibraryQuestions>> open(const QByteArray &path);

    [[nodiscard]] Result<LibraryStatus> status() const;
    [[nodiscard]] Result<std::vector<ScanProblem>> problems() const;
    /// The song whose file has this absolute path, or a link there leads to; NotFound.
    [[nodiscard]] Result<LibrarySong> songForPath(const QByteArray &path) const;
    [[nodiscard]] Result<LibrarySong> song(PersistentID id) const;
    /// What search as you type finds, best first.
    [[nodiscard]] Result<std::vector<PersistentID>> search(const QString &typed, int limit) const;
    /// Every song in the library's order, gone ones too, until @p visit answers false.
    [[nodiscard]] Result<Done> forEachSong(const std::function<bool(const LibrarySong &)> &visit) const;
    /// Of every song, in the order in which they were added.
    [[nodiscard]] Result<std::vector<SongSound>> sounds() const;

protected:
    /// @p didFail is called for each failure, on the thread that asked.
    explicit LibraryQuestions(const QByteArray &path, std::function<void(const Failure &)> didFail = {})
        : m_connections(path, std::move(didFail))
    {}
    [[nodiscard]] const ConnectionPool &connections() const { return m_connections; }

private:
    ConnectionPool m_connections;
};

} // namespace trackwise
