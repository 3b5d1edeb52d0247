// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Mp4Boxes.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr int mostSiblings = 20'000;

} // namespace

std::optional<Mp4Box> mp4BoxAt(MusicFile &file, qint64 at, qint64 end)
{
    const auto header = file.view(at, 16);
    if (header.size() < 8)
        return std::nullopt;
    Mp4Box box{.begin = at, .headerSize = 8};
    std::copy_n(header.begin() + 4, 4, box.type.begin());
    auto size = static_cast<qint64>(bigEndian(header, 0, 4));
    if (size == 1) {
        box.headerSize = 16;
        size = static_cast<qint64>(std::min<std::uint64_t>(bigEndian(header, 8, 8), INT64_MAX / 2));
    }
    if (size < box.headerSize || size > end - at)
        return std::nullopt;
    if (box.name() == "meta" && !stands(file.view(at + box.headerSize, 8), 4, "hdlr"))
        box.headerSize += 4; // version and flags; QuickTime leaves them out
    else if (box.name() == "stsd")
        box.headerSize += 8;
    box.end = at + size;
    return box.headerSize <= size ? std::optional(box) : std::nullopt;
}

std::optional<Mp4Box> mp4BoxIn(MusicFile &file, qint64 begin, qint64 end, std::string_view name)
{
    for (int count = 0; count < mostSiblings; ++count) {
        const auto box = mp4BoxAt(file, begin, end);
        if (!box || box->name() == name)
            return box;
        begin = box->end;
    }
    return std::nullopt;
}

std::optional<Mp4Box> mp4BoxAlong(MusicFile &file, std::initializer_list<std::string_view> path)
{
    std::optional<Mp4Box> box = Mp4Box{.begin = 0, .end = file.size()};
    for (const auto name : path) {
        if (box)
            box = mp4BoxIn(file, box->contentBegin(), box->end, name);
    }
    return box;
}

std::optional<std::uint64_t> mp4Number(MusicFile &file, const Mp4Box &list, std::string_view name)
{
    const auto item = mp4BoxIn(file, list.contentBegin(), list.end, name);
    const auto data = item ? mp4BoxIn(file, item->contentBegin(), item->end, "data") : std::nullopt;
    if (!data)
        return std::nullopt;
    constexpr qint64 typeAndLocale = 8;
    constexpr std::uint64_t text = 1; // the "well-known type" of UTF-8
    const auto content = file.view(data->contentBegin(), typeAndLocale + 8);
    const auto width = data->end - data->contentBegin() - typeAndLocale;
    if (width < 1 || width > 8 || bigEndian(content, 0, 4) == text)
        return std::nullopt;
    const auto value = bigEndian(content, typeAndLocale, static_cast<std::size_t>(width));
    return value == 0 ? std::nullopt : std::optional(value);
}

} // namespace trackwise
