// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/OuterTags.h"

#include "device/library/tags/Id3Frames.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr int mostTags = 8;
constexpr qint64 id3v1Size = 128;
constexpr qint64 apeFooterSize = 32;
constexpr qint64 lyrics3FooterSize = 15;

/// Size of the tag that ends at @p end; 0 when none does.
qint64 trailingTagSize(MusicFile &file, qint64 begin, qint64 end)
{
    if (end - begin >= id3v1Size && stands(file.view(end - id3v1Size, 3), 0, "TAG"))
        return id3v1Size;
    if (end - begin >= apeFooterSize) {
        const auto footer = file.view(end - apeFooterSize, apeFooterSize);
        if (stands(footer, 0, "APETAGEX")) {
            const bool hasHeader = (littleEndian(footer, 20, 4) & 0x80000000) != 0;
            const auto size =
                static_cast<qint64>(littleEndian(footer, 12, 4)) + (hasHeader ? apeFooterSize : 0);
            return size <= end - begin ? std::max(size, apeFooterSize) : 0;
        }
        const auto lyrics = file.view(end - lyrics3FooterSize, lyrics3FooterSize);
        if (stands(lyrics, 6, "LYRICS200")) {
            qint64 size = 0;
            for (std::size_t i = 0; i < 6; ++i)
                size = size * 10 + std::clamp(lyrics[i] - '0', 0, 9);
            size += lyrics3FooterSize;
            return size <= end - begin ? size : 0;
        }
    }
    return 0;
}

} // namespace

Result<OuterTags> outerTags(MusicFile &file)
{
    OuterTags tags{.soundEnd = file.size()};
    for (int i = 0; i < mostTags; ++i) {
        const auto header = id3HeaderAt(file, tags.soundBegin);
        if (!header)
            break;
        if (header->end > file.size())
            return Failure{FailureKind::Malformed,
                           QStringLiteral("the ID3 tag goes past the end of the file")};
        tags.id3.push_back(tags.soundBegin);
        tags.soundBegin = header->end;
    }
    for (int i = 0; i < mostTags; ++i) {
        const auto size = trailingTagSize(file, tags.soundBegin, tags.soundEnd);
        if (size == 0)
            break;
        if (!tags.apeFooter && stands(file.view(tags.soundEnd - apeFooterSize, 8), 0, "APETAGEX"))
            tags.apeFooter = tags.soundEnd - apeFooterSize;
        else if (!tags.id3v1 && stands(file.view(tags.soundEnd - id3v1Size, 3), 0, "TAG"))
            tags.id3v1 = tags.soundEnd - id3v1Size;
        tags.soundEnd -= size;
    }
    return tags;
}

} // namespace trackwise
