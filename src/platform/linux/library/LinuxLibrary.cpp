// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/LinuxLibrary.h"

#include "platform/linux/library/store/SongSearch.h"

namespace trackwise {

LinuxLibrary::LinuxLibrary(LibraryConfiguration configuration, std::shared_ptr<SongStore> store,
                           QSettings &deviceSettings)
    : m_configuration(std::move(configuration))
    , m_store(std::move(store))
    , m_readers(m_configuration.databasePath)
    , m_access(deviceSettings, m_configuration.musicFolders)
    , m_mediaLibrary(m_store, m_readers, m_access)
    , m_lists(m_readers)
    , m_matching(m_readers)
    , m_scan(m_store, m_configuration.musicFolders)
{
    QObject::connect(&m_scan, &ScanController::libraryDidChange, &m_mediaLibrary,
                     &MediaLibrary::libraryDidChange);
}

Result<std::unique_ptr<LinuxLibrary>> LinuxLibrary::open(const LibraryConfiguration &configuration,
                                                         QSettings &deviceSettings)
{
    auto store = SongStore::open(configuration.databasePath);
    if (!store)
        return store.failure();
    return std::unique_ptr<LinuxLibrary>(new LinuxLibrary(configuration, std::move(*store), deviceSettings));
}

void LinuxLibrary::setMusicFolders(const std::vector<QByteArray> &folders)
{
    if (folders == m_configuration.musicFolders)
        return;
    m_configuration.musicFolders = folders;
    m_access.setMusicFolders(folders);
    m_scan.setMusicFolders(folders);
    if (m_access.status() == LibraryAuthorizationStatus::Authorized)
        m_scan.start();
}

void LinuxLibrary::followMusicFolders()
{
    const auto follow = [this] {
        m_scan.setFollowing(m_access.status() == LibraryAuthorizationStatus::Authorized);
    };
    follow();
    QObject::connect(&m_access, &LibraryAccess::statusDidChange, &m_scan, follow);
}

LibraryStatus LinuxLibrary::status() const
{
    return m_readers.read(LibraryStatus{}, [](Reader &reader) {
        LibraryStatus status;
        auto &songs = reader.statement("SELECT availability, count(*) FROM files GROUP BY availability");
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
        auto &problems = reader.statement("SELECT count(*) FROM problems");
        status.problems = problems.step() ? static_cast<qsizetype>(problems.integer(0)) : 0;
        return status;
    });
}

std::vector<ScanProblem> LinuxLibrary::problems() const
{
    return m_readers.read(std::vector<ScanProblem>(), [](Reader &reader) {
        auto &row =
            reader.statement("SELECT folders.path, name, inode, size, modified, kind, reason FROM problems"
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

std::optional<LibrarySong> LinuxLibrary::songForPath(const QByteArray &path) const
{
    return m_readers.read(std::optional<LibrarySong>(),
                          [&](Reader &reader) { return SongLookup(reader).songAt(FileName::ofPath(path)); });
}

std::optional<LibrarySong> LinuxLibrary::song(PersistentID id) const
{
    return m_readers.read(std::optional<LibrarySong>(),
                          [id](Reader &reader) { return SongLookup(reader).song(id); });
}

std::vector<PersistentID> LinuxLibrary::search(const QString &typed, int limit) const
{
    return m_readers.read(std::vector<PersistentID>(),
                          [&](Reader &reader) { return searchSongs(reader, typed, limit); });
}

void LinuxLibrary::forEachSong(const std::function<bool(const LibrarySong &)> &visit) const
{
    (void)m_readers.read(false, [&](Reader &reader) {
        SongLookup(reader).visitSongs(visit);
        return true;
    });
}

} // namespace trackwise
