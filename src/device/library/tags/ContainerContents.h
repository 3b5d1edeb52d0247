// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicContent.h"

#include <vector>

namespace trackwise {

// Containers that are read here, block by block, since TagLib gives up on the whole file where one block is
// odd, reads every picture that there is, and takes the first stream of several for the sound.

/// One metadata block of a FLAC file (RFC 9639, section 8).
struct FlacBlock
{
    enum Type : std::uint8_t { StreamInfo = 0, VorbisComment = 4, Picture = 6 };

    int type = 0;
    qint64 content = 0;
    qint64 size = 0;
};

/// The blocks of the FLAC stream that begins at @p begin. Malformed when they do not end before @p end.
[[nodiscard]] Result<std::vector<FlacBlock>> flacBlocks(MusicFile &file, qint64 begin, qint64 end);
[[nodiscard]] MusicContent flacContent(MusicFile &file, qint64 begin, qint64 end);

[[nodiscard]] MusicContent oggContent(MusicFile &file, const MusicLayout &layout);

} // namespace trackwise
