// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/ContainerContents.h"
#include "device/library/tags/ContainerLayouts.h"

namespace trackwise {

/// "fLaC", then blocks: last-block flag and type in one byte, length in three; the frames follow the last
/// block.
Result<std::vector<FlacBlock>> flacBlocks(MusicFile &file, qint64 begin, qint64 end)
{
    constexpr std::size_t mostBlocks = 4096;
    std::vector<FlacBlock> blocks;
    qint64 at = begin + 4;
    for (bool isLast = false; !isLast;) {
        const auto header = file.view(at, 4);
        if (header.size() < 4 || blocks.size() == mostBlocks)
            return Failure{FailureKind::Malformed, QStringLiteral("FLAC metadata does not end")};
        isLast = (header[0] & 0x80) != 0;
        const FlacBlock block{header[0] & 0x7f, at + 4, static_cast<qint64>(bigEndian(header, 1, 3))};
        if ((block.type == FlacBlock::StreamInfo) != blocks.empty())
            return Failure{FailureKind::Malformed,
                           QStringLiteral("FLAC stream information is not the first block")};
        at = block.content + block.size;
        if (at > end)
            return Failure{FailureKind::Malformed,
                           QStringLiteral("FLAC metadata goes past the end of the file")};
        blocks.push_back(block);
    }
    return blocks;
}

Result<MusicLayout> flacLayout(MusicFile &file, qint64 begin, qint64 end)
{
    const auto blocks = flacBlocks(file, begin, end);
    if (!blocks)
        return blocks.failure();
    const auto sound = blocks->back().content + blocks->back().size;
    if (sound >= end)
        return Failure{FailureKind::Malformed, QStringLiteral("FLAC file without sound")};
    return MusicLayout{Container::Flac, {{sound, end - sound}}};
}

} // namespace trackwise
