// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/SongTags.h"
#include "platform/Result.h"
#include "platform/SongMatching.h"
#include "song/MediaItem.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstdint>

namespace trackwise {

/// A file's name: the folder and the name in it, as the bytes that the file system gives.
struct FileName
{
    QByteArray folder; ///< absolute, without a slash at its end
    QByteArray name;

    [[nodiscard]] QByteArray path() const { return folder + '/' + name; }
    [[nodiscard]] static FileName ofPath(const QByteArray &path)
    {
        const qsizetype slash = path.lastIndexOf('/');
        return {path.left(std::max<qsizetype>(slash, 0)), path.mid(slash + 1)};
    }

    friend bool operator==(const FileName &, const FileName &) = default;
};

/// What tells without reading a file whether it is still the one that was read.
struct StatSignature
{
    FileIdentity identity;
    std::int64_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::int64_t changed = 0;  ///< likewise; the inode's, which no program sets back; 0: not known

    friend bool operator==(const StatSignature &, const StatSignature &) = default;
};

enum class Availability : std::uint8_t {
    Available = 0,
    DiskAbsent = 1, ///< its disk or music folder is not there, or cannot be read
    FileGone = 2,   ///< the folder is there, the file is not
};

/// A file that was read just now, to be written to the library.
struct ScannedSong
{
    FileName file;
    StatSignature signature;
    SongTags tags;
    std::int64_t sidecar = 0; ///< sidecarSignature() of the lyrics beside it; 0: there are none
};

/// A file that looks like music and could not be read.
struct ScanProblem
{
    FileName file;
    StatSignature signature;
    FailureKind kind = FailureKind::Unreadable;
    QString reason; ///< a sentence without the path
};

/// A song as the library keeps it: the record and where its file is, or was last.
struct LibrarySong
{
    MediaItem item;
    FileName file;
    Availability availability = Availability::Available;
};

} // namespace trackwise
