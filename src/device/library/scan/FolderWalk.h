// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/scan/ScanPart.h"
#include "device/library/store/SongRecord.h"

#include <QByteArray>

#include <functional>
#include <stop_token>
#include <vector>

namespace trackwise {

/// A file by the name of a music file, as the walk has seen it. One that cannot be a song says why.
struct FoundFile
{
    QByteArray name;
    StatSignature signature;
    std::optional<FailureKind> failure;
    QString reason;
    bool isUnfinished = false; ///< somebody is still writing it: to be left as it is known
};

/// One folder's files that matter, in the order of their names.
struct FoundFolder
{
    QByteArray path;
    std::uint64_t device = 0;
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::vector<FoundFile> music;
    std::vector<QByteArray> companions; ///< names of what may be lyrics or pictures of the music
    std::vector<QByteArray> folders;    ///< names of the folders in it that belong to the walk
    bool hasLinks = false;              ///< some that lead to folders, or to nothing now
    bool isUncertain = false;           ///< some of its files cannot be looked at
};

/// Walks music folders. Every folder is visited once, however many links lead to it; hidden folders, those
/// that say ".nomedia", trash cans and the system's own file systems are passed over.
class FolderWalk
{
public:
    struct Visitor
    {
        std::function<void(FoundFolder)> folder;
        /// A folder that is there and cannot be listed, or a root that is not there: nothing is known of
        /// what is in it. @p error: the system's word for it, as errno.
        std::function<void(const QByteArray &path, int error)> unreadable;
        /// A folder, in which nothing has been looked at yet: what happens in it until now will be found.
        std::function<void(const FoundFolder &)> willRead = {};
        /// A folder, or a link to one, that is there and is left out for what it holds or is, and not for its
        /// name, with all that is in it.
        std::function<void(const QByteArray &path, FileIdentity folder)> passedOver = {};
    };

    /// False when @p stop ended the walk. Blocks on the disk: worker threads only.
    [[nodiscard]] static bool walk(const std::vector<QByteArray> &roots, const Visitor &visitor,
                                   const std::stop_token &stop);
    /// Visits what is there of @p part, which names real folders that walk() has come past, or that are new
    /// in one of these. No link is followed, and what is not there is not mentioned.
    [[nodiscard]] static bool walkPart(const ScanPart &part, const Visitor &visitor,
                                       const std::stop_token &stop);
};

/// Whether it matters to the library: music, or lyrics and pictures beside it.
[[nodiscard]] bool isOfInterest(QByteArrayView fileName);
/// Whether a walk leaves out every folder of this name.
[[nodiscard]] bool isPassedOver(QByteArrayView folderName);
/// Whether a walk takes a file of this name for music.
[[nodiscard]] bool isMusicName(QByteArrayView fileName);
/// A folder with a file of this name is left out, and all that is in it.
constexpr QByteArrayView leaveOutMark(".nomedia");

} // namespace trackwise
