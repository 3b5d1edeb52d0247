// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/ContainerLayouts.h"

namespace trackwise {

/// "fLaC", then blocks: last-block flag and type in one byte, length in three (RFC 9639, section 8); the
/// frames follow the last block.
Result<MusicLayout> flacLayout(MusicFile &file, qint64 begin, qint64 end)
{
    constexpr int mostBlocks = 4096;
    constexpr int streamInfo = 0;
    qint64 at = begin + 4;
    bool isLast = false;
    for (int block = 0; !isLast; ++block) {
        const auto header = file.view(at, 4);
        if (header.size() < 4 || block == mostBlocks)
            return Failure{FailureKind::Malformed, QStringLiteral("FLAC metadata does not end")};
        isLast = (header[0] & 0x80) != 0;
        const int type = header[0] & 0x7f;
        if ((type == streamInfo) != (block == 0))
            return Failure{FailureKind::Malformed,
                           QStringLiteral("FLAC stream information is not the first block")};
        at += 4 + static_cast<qint64>(bigEndian(header, 1, 3));
        if (at > end)
            return Failure{FailureKind::Malformed,
                           QStringLiteral("FLAC metadata goes past the end of the file")};
    }
    if (at >= end)
        return Failure{FailureKind::Malformed, QStringLiteral("FLAC file without sound")};
    return MusicLayout{Container::Flac, {{at, end - at}}};
}

} // namespace trackwise
