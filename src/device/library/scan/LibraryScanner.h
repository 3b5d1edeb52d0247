// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/scan/ScanMonitor.h"
#include "device/library/scan/ScanPart.h"
#include "device/library/store/SongStore.h"
#include "device/library/tags/FolderListing.h"

#include <functional>
#include <stop_token>
#include <vector>

namespace trackwise {

enum class ScanScope {
    Changes,    ///< files that are not as the library knows them
    Everything, ///< all files, as if nothing were known of what is in them
};

class FolderWatch;

/// What a scan is to do; nothing said: find all changes.
struct ScanRequest
{
    ScanScope scope = ScanScope::Changes;
    ScanPart part = ScanPart::everything(); ///< that is looked at
    /// Gets to know the folders, and keeps files back that are not complete. May be null.
    FolderWatch *watch = nullptr;
};

struct ScanSummary
{
    bool isComplete = false; ///< false: it was stopped
    qsizetype songsRead = 0;
    qsizetype filesFailed = 0;
    qsizetype songsMissing = 0;
    bool wasDisturbed = false; ///< songs were away when it came by and are there now: for another scan
    std::vector<QByteArray> unreadableMusicFolders; ///< those that are there and cannot be listed
};

/// Brings the library up to date with the music folders: one thread walks, others read, the calling one
/// writes, with short queues between them. What has been written stays, however the scan ends.
///
/// A file whose reading ends the program does so once. What was being read when it died is suspect to the
/// next scan, which reads it last, and in a child process first: where the child dies too, the file becomes a
/// problem like any other and is left alone until it changes; a file that was only being read when somebody
/// killed the program passes, and is read at once.
class LibraryScanner
{
public:
    /// @p readers: how many threads read files; 0: as many as the machine has cores.
    LibraryScanner(SongStore &store, std::vector<QByteArray> musicFolders, unsigned readers = 0);

    using TagReading = std::function<Result<SongTags>(const QByteArray &path, const FolderListing &folder)>;
    /// How files are read; readTags() unless said otherwise.
    void setReading(TagReading read) { m_read = std::move(read); }

    /// Worker threads only. One bad file ends nothing: it is listed among the problems and not tried again
    /// until it changes. Fails when the database cannot be written (NoSpace, ...)
    /// or is not there any more.
    [[nodiscard]] Result<ScanSummary> run(const std::stop_token &stop, ScanMonitor &monitor,
                                          const ScanRequest &request = {});

private:
    SongStore &m_store;
    std::vector<QByteArray> m_musicFolders;
    unsigned m_readers;
    TagReading m_read;
};

} // namespace trackwise
