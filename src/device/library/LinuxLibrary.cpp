// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LinuxLibrary.h"

#include "platform/Background.h"

#include <QLoggingCategory>

namespace trackwise {

namespace {
Q_LOGGING_CATEGORY(log, "trackwise.library", QtFatalMsg)
} // namespace

LinuxLibrary::LinuxLibrary(LibraryConfiguration configuration, std::shared_ptr<SongStore> store,
                           QSettings &deviceSettings)
    : LibraryQuestions(configuration.databasePath,
                       [this](const Failure &failure) { m_trouble.report(failure); })
    , m_configuration(std::move(configuration))
    , m_store(std::move(store))
    , m_access(deviceSettings, m_configuration.musicFolders)
    , m_mediaLibrary(m_store, connections(), m_access)
    , m_lists(connections())
    , m_scan(m_store, m_configuration.musicFolders)
{
    QObject::connect(&m_scan, &ScanController::libraryDidChange, &m_mediaLibrary,
                     &MediaLibrary::libraryDidChange);
    QObject::connect(&m_scan, &ScanController::finished, &m_trouble, [this] {
        if (m_scan.failure())
            m_trouble.report(*m_scan.failure());
    });
}

Result<std::unique_ptr<LinuxLibrary>> LinuxLibrary::open(const LibraryConfiguration &configuration,
                                                         QSettings &deviceSettings, Sorting sorting)
{
    auto store = SongStore::open(configuration.databasePath,
                                 sorting == Sorting::OfUser ? std::optional(QByteArray()) : std::nullopt);
    if (!store)
        return store.failure();
    std::unique_ptr<LinuxLibrary> library(new LinuxLibrary(configuration, std::move(*store), deviceSettings));
    if (library->store()->isSortedOtherwise())
        library->sortAnew();
    return library;
}

LinuxLibrary::~LinuxLibrary()
{
    m_stop.request_stop();
    m_sorting.waitForDone();
}

void LinuxLibrary::sortAnew()
{
    runInBackground(
        m_sorting, &m_mediaLibrary,
        [store = m_store, stop = m_stop.get_token()] { return store->renewSortKeys(stop); },
        [library = &m_mediaLibrary](const Result<Done> &sorted) {
            if (sorted)
                Q_EMIT library->libraryDidChange();
            else
                qCWarning(log) << "sorting the library anew:" << sorted.failure().detail;
        });
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

} // namespace trackwise
