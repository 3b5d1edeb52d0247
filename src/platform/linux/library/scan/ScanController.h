// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LibraryScan.h"
#include "platform/linux/library/scan/LibraryScanner.h"

#include <QThreadPool>
#include <QTimer>

#include <memory>
#include <optional>
#include <stop_token>

namespace trackwise {

/// Runs scans in the background, one at a time, and tells how they go. Main thread.
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

    void start() override;
    /// As start(), but with every file, be it changed or not.
    void readEverythingAgain();
    void cancel() override;
    [[nodiscard]] ScanProgress progress() const override;
    /// Why the last scan ended early, such as a full disk; nothing while one runs or after a good one.
    [[nodiscard]] const std::optional<Failure> &failure() const { return m_failure; }

    /// Of the last scan that did not end early.
    [[nodiscard]] const ScanSummary &summary() const { return m_summary; }

Q_SIGNALS:
    /// Songs came, went or changed; at most a few times a second.
    void libraryDidChange();
    /// No scan runs any more, and none is waiting.
    void finished();

private:
    void run();
    void look();
    void end(const Result<ScanSummary> &result);

    std::shared_ptr<SongStore> m_store;
    std::vector<QByteArray> m_musicFolders;
    std::shared_ptr<ScanMonitor> m_monitor; ///< of the scan that runs or ran last
    std::optional<Failure> m_failure;
    ScanSummary m_summary;
    std::stop_source m_stop;
    ScanScope m_nextScope = ScanScope::Changes;
    bool m_isRunning = false;
    bool m_isAnotherWanted = false;
    unsigned m_changesTold = 0;
    QTimer m_timer;
    QThreadPool m_pool;
};

} // namespace trackwise
