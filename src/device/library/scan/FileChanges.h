// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/scan/FolderWalk.h"
#include "device/library/scan/KnownFiles.h"
#include "device/library/scan/LibraryScanner.h"
#include "device/library/scan/MusicDisks.h"
#include "device/library/scan/ScanMonitor.h"
#include "device/library/tags/FolderListing.h"

#include <map>
#include <memory>
#include <variant>

namespace trackwise {

/// A file to be read. The listing of its folder is shared by the folder's files.
struct ReadFile
{
    FileName file;
    StatSignature signature;
    std::int64_t sidecar = 0; ///< see sidecarSignature()
    std::shared_ptr<const FolderListing> companions;
};
/// A picture beside the songs of a folder, to be read.
struct ReadImage
{
    FolderImage image;
    std::shared_ptr<const FolderListing> companions;
};

/// What there is to do about something that the walk has found.
using ScanTask = std::variant<ReadFile, ReadImage, ScanProblem>;

/// Compares what a walk finds with what the library knows. Used by the walk's thread, then by one other.
class FileChanges
{
public:
    /// To be made before @p musicFolders are walked; they and @p known must outlive it.
    FileChanges(const std::vector<QByteArray> &musicFolders, KnownFiles &known, ScanScope scope,
                ScanMonitor &monitor)
        : m_musicFolders(musicFolders)
        , m_known(known)
        , m_scope(scope)
        , m_monitor(monitor)
        , m_disks(musicFolders)
    {}

    /// What is to be read of @p folder.
    [[nodiscard]] std::vector<ScanTask> compare(FoundFolder folder);
    /// See FolderWalk::Visitor.
    [[nodiscard]] std::vector<ScanTask> compareUnreadable(const QByteArray &folder, int error);
    void notePassedOver(const QByteArray &path, FileIdentity folder) { m_disks.notePassedOver(path, folder); }
    /// Those that are there and could not be listed.
    [[nodiscard]] const std::vector<QByteArray> &unreadableMusicFolders() const { return m_unreadableRoots; }

    /// Songs that were thought absent and are there unchanged.
    [[nodiscard]] const std::vector<SongPlace> &returned() const { return m_returned; }

    struct Missing
    {
        std::vector<SongPlace>
            gone; ///< the folder was read and the file is not in it, or the folder lies in no root
        std::vector<SongPlace> diskAbsent; ///< nobody can tell
        std::vector<SongPlace> problems;   ///< failures of files that are gone, of folders that are read
        bool hasReturned = false;          ///< some were not there when the walk came by, and are now
    };
    /// What the walk has not seen. Only after a complete walk; blocks on the disk, since it looks again
    /// before anything is called gone.
    [[nodiscard]] Missing missing() const;

private:
    [[nodiscard]] bool isUnchanged(const FoundFile &file, std::int64_t sidecar,
                                   std::span<KnownFiles::Entry> known);
    [[nodiscard]] bool isAsKnown(const FoundFile &file, const KnownFiles::Entry &entry) const;
    [[nodiscard]] std::int64_t sidecarOf(const QByteArray &name, const FolderListing &companions,
                                         std::uint64_t device) const;
    [[nodiscard]] bool hasStableInodes(std::uint64_t device, const QByteArray &folder);
    [[nodiscard]] static std::optional<ReadImage>
    compareImage(const QByteArray &folder, const KnownFolder *known, bool hasChanges,
                 const std::shared_ptr<const FolderListing> &companions);
    void noteReadable(const QByteArray &folder);
    void noteDisks(const FoundFolder &folder, const FoundFile &file, std::span<KnownFiles::Entry> known);

    const std::vector<QByteArray> &m_musicFolders;
    KnownFiles &m_known;
    ScanScope m_scope;
    ScanMonitor &m_monitor;
    std::vector<QByteArray> m_unreadable;
    std::vector<QByteArray> m_unreadableRoots;
    std::vector<SongPlace> m_returned;
    std::vector<SongPlace> m_readable; ///< folders that could not be read in an earlier scan
    MusicDisks m_disks;
    std::map<std::uint64_t, bool> m_stableInodes;
};

} // namespace trackwise
