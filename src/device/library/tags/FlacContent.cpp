// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/ContainerContents.h"
#include "device/library/tags/Dialects.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr std::uint64_t frontCover = 3;

TagLib::ByteVector bytesOf(MusicFile &file, const FlacBlock &block)
{
    TagLib::ByteVector bytes(static_cast<unsigned>(block.size));
    const auto count = file.read(block.content, bytes.data(), block.size);
    return bytes.resize(static_cast<unsigned>(count));
}

/// The first four bytes: sample rate 20 bits from bit 80 on, then channels 3, sample size 5, samples 36.
double secondsOf(MusicFile &file, const FlacBlock &streamInfo)
{
    const auto bytes = file.view(streamInfo.content, std::min<qint64>(streamInfo.size, 18));
    const auto hertz = bigEndian(bytes, 10, 3) >> 4;
    const auto samples = bigEndian(bytes, 10, 8) & 0xf'ffff'ffffU;
    return hertz > 0 ? static_cast<double>(samples) / static_cast<double>(hertz) : 0;
}

/// Only pictures that can be the cover are read: a file may hold many large ones.
TagLib::ByteVector coverOf(MusicFile &file, std::vector<FlacBlock> pictures)
{
    constexpr std::size_t mostTried = 4;
    std::stable_partition(pictures.begin(), pictures.end(), [&file](const auto &block) {
        return bigEndian(file.view(block.content, 4), 0, 4) == frontCover;
    });
    pictures.resize(std::min(pictures.size(), mostTried));
    for (const auto &block : pictures) {
        TagLib::FLAC::Picture picture;
        if (picture.parse(bytesOf(file, block)) && !picture.data().isEmpty())
            return picture.data();
    }
    return {};
}

} // namespace

MusicContent flacContent(MusicFile &file, qint64 begin, qint64 end)
{
    MusicContent content;
    const auto blocks = flacBlocks(file, begin, end);
    if (!blocks)
        return content;
    content.durationSeconds = secondsOf(file, blocks->front());
    std::vector<FlacBlock> pictures;
    for (const auto &block : *blocks) {
        if (block.type == FlacBlock::Picture && block.size > 0)
            pictures.push_back(block);
    }
    content.picture = coverOf(file, std::move(pictures));
    const auto comment = std::ranges::find_if(
        *blocks, [](const auto &block) { return block.type == FlacBlock::VorbisComment && block.size > 0; });
    if (comment != blocks->end()) {
        TagLib::Ogg::XiphComment parsed(bytesOf(file, *comment));
        content.takeFrom(xiphFields(parsed), bestPicture(parsed.pictureList()));
    }
    return content;
}

} // namespace trackwise
