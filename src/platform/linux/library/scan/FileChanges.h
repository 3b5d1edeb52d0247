// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/library/scan/FolderWalk.h"
#include "platform/linux/library/scan/KnownFiles.h"
#include "platform/linux/library/scan/LibraryScanner.h"
#include "platform/linux/library/scan/ScanMonitor.h"
#include "platform/linux/library/tags/FolderListing.h"

#include <functional>
#include <map>
#include <memory>
#include <set>

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

/// Compares what a walk finds with what the library knows. Used by the walk's thread, then by one other.
class FileChanges
{
public:
    struct Needs
    {
        /// Each gives false when the scan has ended.
        std::function<bool(ReadFile)> file;
        std::function<bool(ReadImage)> image;
        std::function<void(ScanProblem)> problem;
    };

    FileChanges(KnownFiles &known, ScanScope scope, ScanMonitor &monitor, Needs needs)
        : m_known(known)
        , m_scope(scope)
        , m_monitor(monitor)
        , m_needs(std::move(needs))
    {}

    void take(FoundFolder folder);
    void takeUnreadable(const QByteArray &folder) { m_unreadable.push_back(folder); }

    /// Songs that were thought absent and are there unchanged.
    [[nodiscard]] const std::vector<SongPlace> &returned() const { return m_returned; }

    struct Missing
    {
        std::vector<SongPlace>
            gone; ///< the folder was read and the file is not in it, or the folder lies in no root
        std::vector<SongPlace> diskAbsent; ///< nobody can tell
        std::vector<SongPlace> problems;   ///< failures of files that are gone
    };
    /// What the walk of @p roots has not seen. Only after a complete walk.
    [[nodiscard]] Missing missing(const std::vector<QByteArray> &roots) const;

private:
    [[nodiscard]] bool isUnchanged(const FoundFile &file, std::int64_t sidecar,
                                   std::span<KnownFiles::Entry> known);
    [[nodiscard]] bool isAsKnown(const FoundFile &file, const KnownFiles::Entry &entry) const;
    [[nodiscard]] std::int64_t sidecarOf(const QByteArray &name, const FolderListing &companions,
                                         std::uint64_t device) const;
    [[nodiscard]] bool hasStableInodes(std::uint64_t device, const QByteArray &folder);
    void takeImage(const QByteArray &folder, const KnownFolder *known, bool hasChanges,
                   const std::shared_ptr<const FolderListing> &companions);

    KnownFiles &m_known;
    ScanScope m_scope;
    ScanMonitor &m_monitor;
    Needs m_needs;
    std::vector<QByteArray> m_unreadable;
    std::vector<SongPlace> m_returned;
    std::set<std::uint64_t> m_presentDevices;
    std::map<std::uint64_t, bool> m_stableInodes;
};

} // namespace trackwise
