// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SongRecord.h"
#include "device/library/store/SongWriter.h"
#include "device/library/store/Sqlite.h"
#include "device/library/store/TextOrder.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <span>
#include <stop_token>

namespace trackwise {

/// A file that the library knows, as a scan compares it with what it finds.
struct KnownFile
{
    SongRowID song{}; ///< zero for a file that could not be read
    std::int64_t folder = 0;
    std::string_view name; ///< valid during the call that hands it over
    StatSignature signature;
    Availability availability = Availability::Available;
    std::int64_t sidecar = 0;
    /// Read by an earlier version, or a failure that passes without a change of the file, such as a
    /// permission.
    bool isWorthRetrying = false;
};

/// A folder that the library knows, and the picture beside its songs.
struct KnownFolder
{
    std::int64_t id = 0;
    QByteArray path;
    QByteArray imageName;
    std::int64_t imageModified = 0; ///< nanoseconds since 1970
};

/// Where the library believes a song to be. What is said about the place does not count once the song has
/// been found elsewhere.
struct SongPlace
{
    SongRowID song{};
    std::int64_t folder = 0;
    QByteArray name;
};

/// The image that a folder has beside its songs; an empty key: none. It counts while the folder's songs are
/// of one album.
struct FolderImage
{
    QByteArray folder;
    QByteArray name;
    std::int64_t modified = 0; ///< nanoseconds since 1970
    QByteArray key;
};

/// The one writer of the library's database. Any thread; every call is one transaction and blocks on the
/// disk, so that worker threads make them. It opens no music file.
/// Questions are answered by SongLists, SongLookup and SongSearch.
class SongStore
{
public:
    /// Opens the database, making or updating it. The directory is made too. @p locale is the one by which
    /// names are to be sorted, see TextOrder; without one, they stay sorted as they are.
    /// Failures: Malformed (damaged, or not ours), Unsupported (made by a newer version), NoSpace,
    /// Unreadable.
    [[nodiscard]] static Result<std::unique_ptr<SongStore>>
    open(const QByteArray &path, const std::optional<QByteArray> &locale = {});

    [[nodiscard]] const QByteArray &path() const { return m_path; }

    struct Written
    {
        std::size_t songs = 0;        ///< the first ones
        std::set<QByteArray> unheard; ///< what has to be listened to before the others can be written
    };
    /// Writes what a scan has read, none of it on failure: songs in their order, until there is one whose
    /// identity hangs on what other files sound like; the problems when all songs are written. @p heard: of
    /// files that were asked for before.
    [[nodiscard]] Result<Written> write(std::span<const ScannedSong> songs,
                                        std::span<const ScanProblem> problems, Instant now,
                                        HeardSounds heard = {});
    [[nodiscard]] Result<Done> setAvailability(std::span<const SongPlace> places, Availability availability);
    /// Forgets problems of files that are not there any more.
    [[nodiscard]] Result<Done> forgetProblems(std::span<const SongPlace> places);
    [[nodiscard]] Result<Done> writeFolderImages(std::span<const FolderImage> images);

    /// Files that may have ended the program: remembered until it is known whether they are to blame.
    [[nodiscard]] Result<Done> noteSuspects(std::span<const FileName> files);
    [[nodiscard]] Result<std::vector<FileName>> suspects() const;
    /// Forgets the suspects that have turned out to be songs, or are not there any more.
    [[nodiscard]] Result<Done> clearSuspects();

    /// Fails when the database was deleted, moved or replaced while it is open: what is written then is lost.
    [[nodiscard]] Result<Done> checkIsThere() const;

    /// Takes further songs into the full-text index; whether more are waiting.
    [[nodiscard]] Result<bool> indexNext(int count);
    /// Brings further search texts of an earlier version up to date; whether more are waiting.
    [[nodiscard]] Result<bool> renewNext(int count);

    [[nodiscard]] Result<Done> recordPlay(PersistentID id, Instant when);
    [[nodiscard]] Result<Done> recordSkip(PersistentID id);

    /// Whether names are still sorted by another locale than was asked for.
    [[nodiscard]] bool isSortedOtherwise() const { return m_isSortedOtherwise; }
    /// Sorts all names by the locale that was asked for, or none of them if @p stop comes before the end:
    /// then the next start does it. Readers see the order that was until it is done.
    [[nodiscard]] Result<Done> renewSortKeys(const std::stop_token &stop);

    enum class FilesOfFolder { Visit, PassOver };
    using FolderVisitor = std::function<FilesOfFolder(KnownFolder)>;
    using FileVisitor = std::function<void(const KnownFile &)>;
    /// All folders, then the files in them that should be there and those that could not be read.
    [[nodiscard]] Result<Done> visitKnownFiles(const FolderVisitor &folder, const FileVisitor &file) const;

    /// Gives back memory that a scan needed, and brings the database's log into the database.
    void releaseMemory();

private:
    SongStore(QByteArray path, sqlite::Connection connection, const std::optional<QByteArray> &locale);
    void compareOrder(bool isWanted);
    void noteOrder();
    [[nodiscard]] Result<Done> inTransaction(const std::function<void()> &change);
    [[nodiscard]] Result<Done>
    changeSong(PersistentID id, const std::function<void(sqlite::Statement &)> &bind, const char *sql);

    QByteArray m_path;
    mutable std::mutex m_mutex;
    sqlite::Connection m_connection;
    TextOrder m_order;
    bool m_isSortedOtherwise = false;
    SongWriter m_writer;
};

} // namespace trackwise
