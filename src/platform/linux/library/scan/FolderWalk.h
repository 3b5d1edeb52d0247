// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/library/store/SongRecord.h"

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
};

/// One folder's files that matter, in the order of their names.
struct FoundFolder
{
    QByteArray path;
    std::uint64_t device = 0;
    std::vector<FoundFile> music;
    std::vector<QByteArray> companions; ///< names of what may be lyrics or pictures of the music
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
    };

    /// False when @p stop ended the walk. Blocks on the disk: worker threads only.
    [[nodiscard]] static bool walk(const std::vector<QByteArray> &roots, const Visitor &visitor,
                                   const std::stop_token &stop);
};

/// Whether a file with this name is taken for music. Letter case does not matter.
[[nodiscard]] bool hasMusicSuffix(QByteArrayView name);

} // namespace trackwise
