// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/scan/ScanController.h"

#include "platform/Background.h"
#include "platform/linux/library/store/ReaderPool.h"

namespace trackwise {

namespace {
using namespace std::chrono_literals;
constexpr auto lookInterval = 100ms;
} // namespace

ScanController::ScanController(std::shared_ptr<SongStore> store, std::vector<QByteArray> musicFolders,
                               QObject *parent)
    : LibraryScan(parent)
    , m_store(std::move(store))
    , m_musicFolders(std::move(musicFolders))
{
    m_pool.setMaxThreadCount(1);
    m_timer.setInterval(lookInterval);
    connect(&m_timer, &QTimer::timeout, this, &ScanController::look);
}

ScanController::~ScanController()
{
    m_stop.request_stop();
    m_pool.waitForDone();
}

void ScanController::start()
{
    if (m_isRunning)
        m_isAnotherWanted = true;
    else
        run();
}

void ScanController::readEverythingAgain()
{
    m_nextScope = ScanScope::Everything;
    start();
}

void ScanController::cancel()
{
    m_nextScope = ScanScope::Changes;
    m_isAnotherWanted = false;
    m_stop.request_stop();
}

ScanProgress ScanController::progress() const
{
    return m_monitor ? m_monitor->progress(m_isRunning) : ScanProgress{};
}

void ScanController::run()
{
    m_isRunning = true;
    m_isAnotherWanted = false;
    m_failure.reset();
    m_stop = {};
    m_changesTold = 0;
    m_monitor = std::make_shared<ScanMonitor>();
    m_timer.start();
    runInBackground(
        m_pool, this,
        [store = m_store, folders = m_musicFolders, monitor = m_monitor, stop = m_stop.get_token(),
         scope = std::exchange(m_nextScope, ScanScope::Changes)] {
            return LibraryScanner(*store, folders).run(stop, *monitor, scope);
        },
        [this](const Result<ScanSummary> &result) { end(result); });
    Q_EMIT progressDidChange();
}

void ScanController::look()
{
    const unsigned changes = m_monitor->libraryChanges();
    if (changes != m_changesTold) {
        m_changesTold = changes;
        Q_EMIT libraryDidChange();
    }
    Q_EMIT progressDidChange();
}

void ScanController::end(const Result<ScanSummary> &result)
{
    m_isRunning = false;
    m_timer.stop();
    if (result) {
        m_summary = *result;
    } else {
        m_failure = result.failure();
        qCWarning(libraryLog) << "scanning the music folders:" << m_failure->detail;
    }
    look();
    if (m_isAnotherWanted)
        run();
    else
        Q_EMIT finished();
}

} // namespace trackwise
