// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/ContainerLayouts.h"

#include <algorithm>

namespace trackwise {

/// Objects of GUID, size in 64 bits and content; the header object counts what it holds (Advanced Systems
/// Format, sections 2 and 3.1). The data object has 50 bytes before its packets.
Result<MusicLayout> asfLayout(MusicFile &file, qint64 begin, qint64 end)
{
    using namespace std::string_view_literals;
    constexpr auto dataObject = "\x36\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C"sv;
    constexpr qint64 objectHeader = 24;
    constexpr qint64 fileHeader = 30;
    constexpr qint64 dataHeader = 50;
    constexpr int mostObjects = 4096;

    const auto sizeAt = [&](qint64 at) {
        const auto size = littleEndian(file.view(at + 16, 8), 0, 8);
        return static_cast<qint64>(std::min<std::uint64_t>(size, INT64_MAX / 2));
    };
    const auto headerEnd = begin + sizeAt(begin);
    if (headerEnd > end || headerEnd < begin + fileHeader)
        return Failure{FailureKind::Malformed, QStringLiteral("the ASF header is cut off")};
    int objects = 0;
    for (auto at = begin + fileHeader; at < headerEnd; at += sizeAt(at)) {
        if (sizeAt(at) < objectHeader || at + sizeAt(at) > headerEnd || ++objects > mostObjects)
            return Failure{FailureKind::Malformed, QStringLiteral("the ASF header makes no sense")};
    }
    if (!stands(file.view(headerEnd, 16), 0, dataObject) || headerEnd + dataHeader >= end)
        return Failure{FailureKind::Malformed, QStringLiteral("ASF file without sound")};
    const auto size = sizeAt(headerEnd);
    const auto dataEnd = size > dataHeader ? std::min(end, headerEnd + size) : end;
    return MusicLayout{Container::Asf, {{headerEnd + dataHeader, dataEnd - headerEnd - dataHeader}}};
}

} // namespace trackwise
