// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/scan/FolderWatch.h"
#include "device/library/scan/LibraryScanner.h"
#include "platform/LibraryScan.h"

#include <QElapsedTimer>
#include <QThreadPool>
#include <QTimer>

#include <memory>
#include <optional>
#include <stop_token>

namespace trackwise {

/// Runs scans in the background, one at a time, and tells how they go: those that are asked for, and those of
/// folders in which something has changed. Main thread.
class ScanController final : public LibraryScan
{
    Q_OBJECT

public:
    ScanController(std::shared_ptr<SongStore> store, std::vector<QByteArray> musicFolders,
                   QObject *parent = nullptr);
    /// Stops the scan and waits for it.
    ~ScanController() override;

    /// For the scans that start from now on.
    void setMusicFolders(std::vector<QByteArray> folders) { m_musicFolders = std::move(folders); }

    /// Whether the folders are watched from the next scan on. At first they are not.
    void setFollowing(bool isFollowing);

    void start() override;
    /// As start(), but with every file, be it changed or not.
    void readEverythingAgain();
    void lookForChanges() override;
    void cancel() override;
    [[nodiscard]] ScanProgress progress() const override;
    /// Why the last scan ended early, such as a full disk; nothing while one runs or after a good one.
    [[nodiscard]] const std::optional<Failure> &failure() const { return m_failure; }

    /// Of the last scan that did not end early.
    [[nodiscard]] const ScanSummary &summary() const { return m_summary; }

Q_SIGNALS:
    /// Songs came, went or changed; at most a few times a second.
    void libraryDidChange();
    /// No scan runs any more, and none is waiting. Not told of scans that nobody has asked for.
    void finished();

private:
    void scanQuietly(const ScanPart &part);
    void run();
    [[nodiscard]] bool isWorthRepeating(const Result<ScanSummary> &result);
    void look();
    void end(const Result<ScanSummary> &result);

    std::shared_ptr<SongStore> m_store;
    std::vector<QByteArray> m_musicFolders;
    struct
    {
        bool isRunning = false;
        std::shared_ptr<ScanMonitor> monitor;
        ScanPart part;
        std::stop_source stop;
        QElapsedTimer sinceStart;
        unsigned changesTold = 0;
    } m_scan; ///< that runs or ran last
    struct
    {
        ScanScope scope = ScanScope::Changes;
        ScanPart part;
    } m_next; ///< scan; nothing where its part is empty
    std::optional<Failure> m_failure;
    ScanSummary m_summary;
    bool m_isAskedFor = false; ///< the scan that runs, or one before it without a pause
    bool m_isFollowing = false;
    int m_repeats = 0; ///< of the last scan, since it was disturbed
    QTimer m_timer;
    std::unique_ptr<FolderWatch> m_watch; ///< scans use it, and it calls this object
    QThreadPool m_pool;
};

} // namespace trackwise
