// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SongRecord.h"

#include <QByteArray>

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace trackwise {

/// Whether the music folders and disks that a walk has found are there when it has ended: each may go away at
/// any moment of a scan, and come back, so that a file which the walk has not seen need not be gone. Used by
/// one thread at a time.
class MusicDisks
{
public:
    /// Looks at the music folders: to be made before they are walked.
    explicit MusicDisks(const std::vector<QByteArray> &musicFolders);

    /// The walk has come across the disk that the library knows under the number @p knownAs: what is at
    /// @p path has the number @p device now. The first word counts.
    void noteSeen(std::uint64_t knownAs, const QByteArray &path, std::uint64_t device);
    [[nodiscard]] bool isSeen(std::uint64_t knownAs) const { return m_disks.contains(knownAs); }
    /// See FolderWalk::Visitor.
    void notePassedOver(const QByteArray &path, FileIdentity folder);

    struct File
    {
        QByteArray path;
        std::uint64_t disk = 0; ///< as the library knows it; 0: whichever
        bool mayBeFolder = false;
    };
    enum class Whereabouts {
        There,   ///< where it should be; it was not when the walk came by
        Gone,    ///< its folder and its disk are there, it is not, or is nothing that a walk takes
        Unknown, ///< its music folder or its disk is not there
    };
    /// Looks for files that the walk has not seen, in the given order. Blocks on the disk.
    [[nodiscard]] std::vector<Whereabouts> lookFor(const std::vector<File> &files) const;

private:
    struct Place
    {
        QByteArray path;
        std::uint64_t device = 0;
        std::uint64_t inode = 0; ///< 0: whichever
    };
    [[nodiscard]] static bool isStill(const Place &place);
    [[nodiscard]] const Place *musicFolderOf(const QByteArray &path) const;
    [[nodiscard]] const Place *passedOverAbove(const QByteArray &path, const Place &musicFolder) const;

    std::vector<Place> m_musicFolders; ///< those that were there
    std::map<std::uint64_t, Place> m_disks;
    std::map<QByteArray, Place> m_passedOver; ///< by their paths
};

/// Whether @p path is @p folder or lies in it.
[[nodiscard]] bool isWithin(const QByteArray &path, const QByteArray &folder);

} // namespace trackwise
