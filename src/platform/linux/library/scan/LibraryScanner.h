// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/library/scan/ScanMonitor.h"
#include "platform/linux/library/store/SongStore.h"

#include <stop_token>
#include <vector>

namespace trackwise {

enum class ScanScope {
    Changes,    ///< files that are not as the library knows them
    Everything, ///< all files, as if nothing were known of what is in them
};

struct ScanSummary
{
    bool isComplete = false; ///< false: it was stopped
    qsizetype songsRead = 0;
    qsizetype filesFailed = 0;
    qsizetype songsMissing = 0;
    std::vector<QByteArray> unreadableMusicFolders; ///< those that are there and cannot be listed
};

/// Brings the library up to date with the music folders: one thread walks, others read, the calling one
/// writes, with short queues between them. What has been written stays, however the scan ends.
class LibraryScanner
{
public:
    /// @p readers: how many threads read files; 0: as many as the machine has cores.
    LibraryScanner(SongStore &store, std::vector<QByteArray> musicFolders, unsigned readers = 0);

    /// Worker threads only. One bad file ends nothing: it is listed among the problems and not tried again
    /// until it changes. Fails when the database cannot be written (NoSpace, ...)
    /// or is not there any more.
    [[nodiscard]] Result<ScanSummary> run(const std::stop_token &stop, ScanMonitor &monitor,
                                          ScanScope scope = ScanScope::Changes);

private:
    SongStore &m_store;
    std::vector<QByteArray> m_musicFolders;
    unsigned m_readers;
};

} // namespace trackwise
