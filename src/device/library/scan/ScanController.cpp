// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/ScanController.h"

#include "platform/Background.h"

#include <QLoggingCategory>

namespace trackwise {

namespace {
using namespace std::chrono_literals;

Q_LOGGING_CATEGORY(log, "trackwise.library", QtFatalMsg)

constexpr auto lookInterval = 100ms;
constexpr std::chrono::milliseconds quietTime =
    1s;                        ///< a scan that takes longer is worth mentioning, whoever wanted it
constexpr int mostRepeats = 3; ///< of a disturbed scan; what goes on changing is left to the watch
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
    m_scan.stop.request_stop();
    m_pool.waitForDone();
    m_watch.reset();
}

void ScanController::setFollowing(bool isFollowing)
{
    if (isFollowing == m_isFollowing)
        return;
    m_isFollowing = isFollowing;
    if (m_watch)
        m_watch->clear();
    if (!isFollowing) {
        cancel();
    } else if (!m_watch) {
        m_watch = std::make_unique<FolderWatch>([this](const ScanPart &part) {
            QMetaObject::invokeMethod(
                this, [this, part] { scanQuietly(part); }, Qt::QueuedConnection);
        });
    }
    if (isFollowing && m_scan.isRunning) // which knows nothing of the watch
        m_next.part = ScanPart::everything();
}

void ScanController::start()
{
    m_isAskedFor = true;
    m_next.part = ScanPart::everything();
    if (!m_scan.isRunning)
        run();
}

void ScanController::lookForChanges()
{
    if (m_isFollowing && !m_scan.isRunning && !m_watch->seesEverything())
        scanQuietly(ScanPart::everything());
}

void ScanController::scanQuietly(const ScanPart &part)
{
    if (!m_isFollowing)
        return;
    m_next.part.add(part);
    if (!m_scan.isRunning)
        run();
}

void ScanController::readEverythingAgain()
{
    m_next.scope = ScanScope::Everything;
    start();
}

void ScanController::cancel()
{
    m_next = {};
    m_scan.stop.request_stop();
}

ScanProgress ScanController::progress() const
{
    if (!m_scan.monitor)
        return {};
    ScanProgress progress = m_scan.monitor->progress(m_scan.isRunning);
    progress.isQuiet = !m_isAskedFor && !m_scan.sinceStart.hasExpired(quietTime.count());
    return progress;
}

void ScanController::run()
{
    m_failure.reset();
    m_scan = {.isRunning = true,
              .monitor = std::make_shared<ScanMonitor>(),
              .part = std::exchange(m_next.part, {})};
    m_scan.sinceStart.start();
    m_timer.start();
    runInBackground(
        m_pool, this,
        [store = m_store, folders = m_musicFolders, monitor = m_scan.monitor, stop = m_scan.stop.get_token(),
         request = ScanRequest{std::exchange(m_next.scope, ScanScope::Changes), m_scan.part,
                               m_isFollowing ? m_watch.get() : nullptr}] {
            return LibraryScanner(*store, folders).run(stop, *monitor, request);
        },
        [this](const Result<ScanSummary> &result) { end(result); });
    Q_EMIT progressDidChange();
}

void ScanController::look()
{
    const unsigned changes = m_scan.monitor->libraryChanges();
    if (changes != m_scan.changesTold) {
        m_scan.changesTold = changes;
        Q_EMIT libraryDidChange();
    }
    Q_EMIT progressDidChange();
}

bool ScanController::isWorthRepeating(const Result<ScanSummary> &result)
{
    const bool isWorthIt = m_isFollowing && result && result->wasDisturbed && m_repeats < mostRepeats;
    m_repeats = isWorthIt ? m_repeats + 1 : 0;
    return isWorthIt;
}

void ScanController::end(const Result<ScanSummary> &result)
{
    m_scan.isRunning = false;
    m_timer.stop();
    if (result) {
        m_summary = *result;
    } else {
        m_failure = result.failure();
        qCWarning(log) << "scanning the music folders:" << m_failure->detail;
    }
    if (m_watch && !m_isFollowing)
        m_watch->clear(); // of what the scan came past since
    look();
    if (isWorthRepeating(result))
        m_next.part.add(m_scan.part);
    if (!m_next.part.isEmpty())
        run();
    else if (std::exchange(m_isAskedFor, false))
        Q_EMIT finished();
}

} // namespace trackwise
