// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/scan/ChangeGathering.h"
#include "device/library/scan/FolderWalk.h"
#include "device/library/scan/MountTable.h"
#include "device/library/scan/WatchedFolders.h"

#include <atomic>
#include <functional>
#include <stop_token>
#include <thread>

namespace trackwise {

struct WatchLimits
{
    std::optional<std::size_t> mostWatches; ///< else what WatchedFolders thinks right
    std::chrono::milliseconds pollInterval{30'000};
    std::chrono::milliseconds stalledWriter{2'000}; ///< as for ChangeGathering
};

/// Notices what happens in the folders of the library, and says which of them are to be scanned. It learns
/// the folders from the scans themselves, and so knows nothing before the first one. A thread of its own
/// sleeps until the system tells of something; it wakes by itself only where there are folders of which the
/// system does not tell.
class FolderWatch
{
public:
    /// Called on the watch's own thread.
    using ChangeHandler = std::function<void(ScanPart)>;

    explicit FolderWatch(ChangeHandler didChange, const WatchLimits &limits = {});
    ~FolderWatch();
    FolderWatch(const FolderWatch &) = delete;
    FolderWatch &operator=(const FolderWatch &) = delete;

    // What a scan tells; its threads.
    void willScan(const ScanPart &part, const std::vector<QByteArray> &musicFolders);
    void willRead(const FoundFolder &folder) { m_folders.add(folder); }
    /// Marks the files that are not complete yet; when they are, that is a change.
    void didRead(FoundFolder &folder);
    /// The file has become another one while it was read.
    void didFindGrowing(const FileName &file);
    /// All that there is of @p part has been read.
    void didScan(const ScanPart &part);

    /// Lets all folders go.
    void clear();
    /// False where some changes can only be found by looking. Any thread.
    [[nodiscard]] bool seesEverything() const { return !m_folders.hasPolled(); }

private:
    using Time = ChangeGathering::Time;
    struct Woken
    {
        bool byEvents = false;
        bool byMounts = false;
    };

    void run();
    [[nodiscard]] Woken sleep(std::optional<Time> until, bool isForEvents) const;
    void wake() const;
    void handOn();

    void handle(const FolderEvent &event);
    void handleFolderEvent(const FolderEvent &event);
    void handleFileEvent(const FolderEvent &event);
    void handleMounts();
    void pollFolders();
    void pollFolder(const QByteArray &path, std::int64_t modified);

    void add(const ScanPart &part);
    void addEverything() { add(ScanPart::everything()); }
    void addNew(const QByteArray &folder);
    void addGone(const QByteArray &folder);
    [[nodiscard]] bool concernsLibrary(const QByteArray &mountPlace) const;

    ChangeHandler m_didChange;
    std::chrono::milliseconds m_pollInterval;
    WatchedFolders m_folders;
    MountTable m_mounts;
    int m_waker; ///< an event descriptor
    std::atomic<bool> m_hasLinks = false;
    mutable std::mutex m_mutex; ///< of the two that follow
    ChangeGathering m_changes;
    std::vector<QByteArray> m_musicFolders;
    std::stop_source m_stop;
    std::jthread m_thread; ///< last: it ends before what it uses
};

} // namespace trackwise
