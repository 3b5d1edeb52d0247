// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/ContainerLayouts.h"

#include <algorithm>

namespace trackwise {

namespace {

struct ChunkedFormat
{
    Container container;
    qint64 (*chunkSize)(MusicFile::Bytes header);
    std::string_view soundChunk;
    qint64 soundHeader; ///< bytes before the samples
};

qint64 littleSize(MusicFile::Bytes header)
{
    return static_cast<qint64>(littleEndian(header, 4, 4));
}

qint64 bigSize(MusicFile::Bytes header)
{
    return static_cast<qint64>(bigEndian(header, 4, 4));
}

bool isPrintable(MusicFile::Bytes id)
{
    return std::all_of(id.begin(), id.begin() + 4, [](auto c) { return c >= 32 && c < 127; });
}

/// Chunks of name, size and content, padded to even sizes, after a header of 12 bytes. The size that the
/// header claims is not looked at: recorders that were cut short leave it wrong.
Result<MusicLayout> chunkedLayout(MusicFile &file, qint64 begin, qint64 end, const ChunkedFormat &format)
{
    constexpr int mostChunks = 4096;
    MusicLayout layout{format.container, {}};
    auto at = begin + 12;
    for (int chunk = 0; at + 8 <= end && chunk < mostChunks; ++chunk) {
        const auto header = file.view(at, 8);
        if (header.size() < 8 || !isPrintable(header))
            break;
        const auto size = format.chunkSize(header);
        if (stands(header, 0, format.soundChunk)) {
            const auto sound = at + 8 + format.soundHeader;
            const auto soundEnd = std::min(at + 8 + size, end);
            if (soundEnd > sound)
                layout.sound.push_back({sound, soundEnd - sound});
        }
        at += 8 + size + (size & 1);
    }
    if (layout.sound.empty())
        return Failure{FailureKind::Malformed, QStringLiteral("no sound found in it")};
    return layout;
}

} // namespace

Result<MusicLayout> wavLayout(MusicFile &file, qint64 begin, qint64 end)
{
    return chunkedLayout(file, begin, end, {Container::Wav, littleSize, "data", 0});
}

Result<MusicLayout> aiffLayout(MusicFile &file, qint64 begin, qint64 end)
{
    return chunkedLayout(file, begin, end, {Container::Aiff, bigSize, "SSND", 8});
}

} // namespace trackwise
