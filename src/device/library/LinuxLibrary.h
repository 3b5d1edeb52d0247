// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/LibraryAccess.h"
#include "device/library/LibraryConfiguration.h"
#include "device/library/LibraryQuestions.h"
#include "device/library/LibraryTrouble.h"
#include "device/library/LinuxMediaLibrary.h"
#include "device/library/scan/ScanController.h"
#include "device/library/store/SongLists.h"
#include "device/library/store/SongStore.h"

#include <memory>

namespace trackwise {

enum class Sorting {
    AsStored, ///< names stay sorted as they were when a window was open last
    OfUser, ///< by the user's locale; once after a change of it, in the background, everything is sorted anew
};

/// One library on this device and all the ways to use it. Built by whoever composes the program.
class LinuxLibrary : public LibraryQuestions
{
public:
    /// Opens the library, making an empty one where there is none. @p deviceSettings must outlive it.
    /// Failures are those of SongStore::open().
    [[nodiscard]] static Result<std::unique_ptr<LinuxLibrary>> open(const LibraryConfiguration &configuration,
                                                                    QSettings &deviceSettings,
                                                                    Sorting sorting = Sorting::AsStored);
    /// Waits for what is under way in the background, which ends early.
    ~LinuxLibrary();

    [[nodiscard]] const LibraryConfiguration &configuration() const { return m_configuration; }
    /// Takes over another choice of folders and, where that is allowed, scans them. Main thread.
    void setMusicFolders(const std::vector<QByteArray> &folders);
    /// From now on, and as long as that is allowed, changes of the music folders are noticed. The folders
    /// become known by a scan, which somebody else starts. Main thread.
    void followMusicFolders();
    [[nodiscard]] LibraryAccess &access() { return m_access; }
    [[nodiscard]] MediaLibrary &mediaLibrary() { return m_mediaLibrary; }
    [[nodiscard]] const LibraryBrowser &browser() const { return m_lists; }
    [[nodiscard]] const SongMatching &matching() const { return m_mediaLibrary; }
    /// Its changes are announced by the media library too.
    [[nodiscard]] ScanController &scan() { return m_scan; }
    [[nodiscard]] const std::shared_ptr<SongStore> &store() const { return m_store; }
    /// The library could not be read or written. Sent once for all that follows from it.
    [[nodiscard]] const LibraryTrouble &trouble() const { return m_trouble; }

private:
    LinuxLibrary(LibraryConfiguration configuration, std::shared_ptr<SongStore> store,
                 QSettings &deviceSettings);
    void sortAnew();

    LibraryTrouble m_trouble;
    LibraryConfiguration m_configuration;
    std::shared_ptr<SongStore> m_store;
    LibraryAccess m_access;
    LinuxMediaLibrary m_mediaLibrary;
    SongLists m_lists;
    ScanController m_scan;
    std::stop_source m_stop;
    QThreadPool m_sorting;
};

} // namespace trackwise
