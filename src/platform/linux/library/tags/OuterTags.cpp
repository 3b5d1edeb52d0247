// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/OuterTags.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr int mostTags = 8;
constexpr int mostFrames = 1000;
constexpr qint64 largestId3 = qint64{32} * 1024 * 1024;
constexpr qint64 id3HeaderSize = 10;
constexpr qint64 id3v1Size = 128;
constexpr qint64 apeFooterSize = 32;
constexpr qint64 lyrics3FooterSize = 15;

/// Seven bits a byte (ID3v2.4 structure, section 6.2).
qint64 synchsafe(MusicFile::Bytes bytes, std::size_t at)
{
    qint64 value = 0;
    for (std::size_t i = at; i < at + 4; ++i)
        value = value << 7 | (bytes[i] & 0x7f);
    return value;
}

bool isId3Header(MusicFile::Bytes bytes)
{
    return bytes.size() >= id3HeaderSize && stands(bytes, 0, "ID3") && bytes[3] < 0xff && bytes[4] < 0xff &&
           ((bytes[6] | bytes[7] | bytes[8] | bytes[9]) & 0x80) == 0;
}

bool isFrameId(MusicFile::Bytes bytes, std::size_t length)
{
    return std::all_of(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length),
                       [](auto c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

/// Where the frames after the first mostFrames begin; the end of the tag when there are no more than that.
qint64 cutOf(MusicFile &file, qint64 at, qint64 end, int version)
{
    const std::size_t idSize = version == 2 ? 3 : 4;
    const qint64 headerSize = version == 2 ? 6 : 10;
    for (int frame = 0; at + headerSize < end; ++frame) {
        const auto header = file.view(at, headerSize);
        if (static_cast<qint64>(header.size()) < headerSize || !isFrameId(header, idSize))
            break;
        if (frame == mostFrames)
            return at;
        const auto size = version == 2   ? static_cast<qint64>(bigEndian(header, 3, 3))
                          : version == 3 ? static_cast<qint64>(bigEndian(header, 4, 4))
                                         : synchsafe(header, 4);
        at += headerSize + size;
    }
    return end;
}

void limitFrames(MusicFile &file, OuterTags &tags, MusicFile::Bytes header, qint64 end)
{
    const int version = header[3];
    QByteArray head(reinterpret_cast<const char *>(header.data()), id3HeaderSize);
    auto cut = end > largestId3 ? id3HeaderSize : cutOf(file, id3HeaderSize, end, version);
    if (cut == end)
        return;
    const auto size = cut - id3HeaderSize;
    for (int i = 0; i < 4; ++i)
        head[6 + i] = static_cast<char>(size >> (21 - 7 * i) & 0x7f);
    head[5] = static_cast<char>(head[5] & ~0x10); // a footer would be cut away too
    tags.id3CutBegin = cut;
    tags.id3CutEnd = end;
    tags.id3Head = head;
}

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
        const auto header = file.view(tags.soundBegin, id3HeaderSize);
        if (!isId3Header(header))
            break;
        const bool hasFooter = (header[5] & 0x10) != 0;
        const auto end =
            tags.soundBegin + id3HeaderSize + synchsafe(header, 6) + (hasFooter ? id3HeaderSize : 0);
        if (end > file.size())
            return Failure{FailureKind::Malformed,
                           QStringLiteral("the ID3 tag goes past the end of the file")};
        if (i == 0)
            limitFrames(file, tags, header, end);
        tags.soundBegin = end;
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
