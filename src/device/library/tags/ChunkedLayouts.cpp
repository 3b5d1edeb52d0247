// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/ContainerLayouts.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>

namespace trackwise {

namespace {

struct ChunkedFormat
{
    Container container;
    qint64 firstChunk;
    qint64 chunkHeader;                                       ///< bytes of name and size
    std::function<qint64(MusicFile::Bytes header)> chunkSize; ///< of the content alone
    qint64 alignment;                                         ///< that chunks begin at
    std::array<std::string_view, 2> soundChunks;
    qint64 soundHeader; ///< bytes before the samples
};

qint64 limited(std::uint64_t size)
{
    return static_cast<qint64>(std::min<std::uint64_t>(size, INT64_MAX / 4));
}

qint64 aligned(qint64 size, qint64 alignment)
{
    return (size + alignment - 1) / alignment * alignment;
}

bool isPrintable(MusicFile::Bytes id)
{
    return std::all_of(id.begin(), id.begin() + 4, [](auto c) { return c >= 32 && c < 127; });
}

/// Chunks of name, size and content. The size that the file's own header claims is not looked at: recorders
/// that were cut short leave it wrong.
Result<MusicLayout> chunkedLayout(MusicFile &file, qint64 begin, qint64 end, const ChunkedFormat &format)
{
    constexpr int mostChunks = 4096;
    constexpr std::size_t mostTags = 8;
    MusicLayout layout{format.container, {}};
    auto at = begin + format.firstChunk;
    for (int chunk = 0; at + format.chunkHeader <= end && chunk < mostChunks; ++chunk) {
        const auto header = file.view(at, format.chunkHeader);
        if (static_cast<qint64>(header.size()) < format.chunkHeader || !isPrintable(header))
            break;
        const auto content = at + format.chunkHeader;
        const auto size = format.chunkSize(header);
        const auto isThis = [&](auto name) { return stands(header, 0, name); };
        if (std::ranges::any_of(format.soundChunks, isThis)) {
            const auto sound = content + format.soundHeader;
            const auto soundEnd = std::min(content + size, end);
            if (soundEnd > sound)
                layout.sound.push_back({sound, soundEnd - sound});
        } else if ((stands(header, 0, "ID3 ") || stands(header, 0, "id3 ")) && content + size <= end &&
                   layout.id3Chunks.size() < mostTags) {
            layout.id3Chunks.push_back(content);
        }
        at = content + aligned(size, format.alignment);
    }
    if (layout.sound.empty())
        return Failure{FailureKind::Malformed, QStringLiteral("no sound found in it")};
    return layout;
}

} // namespace

Result<MusicLayout> wavLayout(MusicFile &file, qint64 begin, qint64 end)
{
    const auto size = [](MusicFile::Bytes header) { return limited(littleEndian(header, 4, 4)); };
    return chunkedLayout(file, begin, end, {Container::Wav, 12, 8, size, 2, {"data", "data"}, 0});
}

/// As WAV, but what is larger than 4 GiB says so in its first chunk, whose second number is the size of the
/// sound (EBU Tech 3306).
Result<MusicLayout> rf64Layout(MusicFile &file, qint64 begin, qint64 end)
{
    constexpr std::uint64_t elsewhere = 0xffff'ffff;
    const auto first = file.view(begin + 12, 24);
    const auto sound = stands(first, 0, "ds64") ? limited(littleEndian(first, 16, 8)) : 0;
    const auto size = [sound](MusicFile::Bytes header) {
        const auto told = littleEndian(header, 4, 4);
        return told == elsewhere && stands(header, 0, "data") && sound > 0 ? sound : limited(told);
    };
    return chunkedLayout(file, begin, end, {Container::Rf64, 12, 8, size, 2, {"data", "data"}, 0});
}

/// As WAV, with names of 16 bytes that begin with the four of old, and 64-bit sizes that include both.
Result<MusicLayout> wave64Layout(MusicFile &file, qint64 begin, qint64 end)
{
    const auto size = [](MusicFile::Bytes header) {
        return std::max<qint64>(0, limited(littleEndian(header, 16, 8)) - 24);
    };
    return chunkedLayout(file, begin, end, {Container::Wave64, 40, 24, size, 8, {"data", "data"}, 0});
}

/// Core Audio Format: 64-bit sizes, -1 for sound that goes on to the end; it begins with a count of edits.
Result<MusicLayout> cafLayout(MusicFile &file, qint64 begin, qint64 end)
{
    const auto size = [](MusicFile::Bytes header) { return limited(bigEndian(header, 4, 8)); };
    return chunkedLayout(file, begin, end, {Container::Caf, 8, 12, size, 1, {"data", "data"}, 4});
}

Result<MusicLayout> aiffLayout(MusicFile &file, qint64 begin, qint64 end)
{
    const auto size = [](MusicFile::Bytes header) { return limited(bigEndian(header, 4, 4)); };
    return chunkedLayout(file, begin, end, {Container::Aiff, 12, 8, size, 2, {"SSND", "SSND"}, 8});
}

/// DSD Stream File 1.01: 64-bit sizes that include the chunk's header; the first chunk tells where the ID3
/// tag begins.
Result<MusicLayout> dsfLayout(MusicFile &file, qint64 begin, qint64 end)
{
    const auto size = [](MusicFile::Bytes header) {
        return std::max<qint64>(0, limited(littleEndian(header, 4, 8)) - 12);
    };
    auto layout = chunkedLayout(file, begin, end, {Container::Dsf, 0, 12, size, 1, {"data", "data"}, 0});
    const auto id3 = limited(littleEndian(file.view(begin + 20, 8), 0, 8));
    if (layout && id3 > 0 && id3 < file.size())
        layout->id3Chunks.push_back(id3);
    return layout;
}

/// DSDIFF 1.5: as AIFF, with 64-bit sizes.
Result<MusicLayout> dsdiffLayout(MusicFile &file, qint64 begin, qint64 end)
{
    const auto size = [](MusicFile::Bytes header) { return limited(bigEndian(header, 4, 8)); };
    return chunkedLayout(file, begin, end, {Container::Dsdiff, 16, 12, size, 2, {"DSD ", "DST "}, 0});
}

} // namespace trackwise
