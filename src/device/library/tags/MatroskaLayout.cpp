// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/ContainerLayouts.h"

#include <algorithm>
#include <bit>
#include <optional>

namespace trackwise {

namespace {

constexpr std::uint64_t segmentId = 0x18538067;
constexpr std::uint64_t clusterId = 0x1F43B675;

struct Element
{
    std::uint64_t id = 0;
    qint64 content = 0;
    qint64 end = 0;
    bool isEndless = false; ///< of unknown size, as live recordings are
};

/// Numbers of one to eight bytes whose leading zero bits tell their width; an identifier keeps the marker
/// bit, a size does not (RFC 8794, section 4).
std::optional<Element> elementAt(MusicFile &file, qint64 at, qint64 end)
{
    const auto bytes = file.view(at, 16);
    if (bytes.empty() || bytes[0] == 0)
        return std::nullopt;
    const auto idWidth = static_cast<std::size_t>(std::countl_zero(bytes[0])) + 1;
    if (bytes.size() < idWidth + 1 || bytes[idWidth] == 0)
        return std::nullopt;
    const auto sizeWidth = static_cast<std::size_t>(std::countl_zero(bytes[idWidth])) + 1;
    if (bytes.size() < idWidth + sizeWidth)
        return std::nullopt;
    const auto unknown = (std::uint64_t(1) << (7 * sizeWidth)) - 1;
    const auto size = bigEndian(bytes, idWidth, sizeWidth) & unknown;
    Element element{.id = bigEndian(bytes, 0, idWidth),
                    .content = at + static_cast<qint64>(idWidth + sizeWidth),
                    .end = end,
                    .isEndless = size == unknown};
    if (!element.isEndless && static_cast<qint64>(size) < end - element.content)
        element.end = element.content + static_cast<qint64>(size);
    return element;
}

} // namespace

Result<MusicLayout> matroskaLayout(MusicFile &file, qint64 begin, qint64 end)
{
    constexpr int mostElements = 20'000;
    MusicLayout layout{Container::Matroska, {}};
    const auto header = elementAt(file, begin, end);
    const auto segment = header ? elementAt(file, header->end, end) : std::nullopt;
    if (!segment || segment->id != segmentId)
        return Failure{FailureKind::Malformed, QStringLiteral("Matroska file without a segment")};
    auto at = segment->content;
    for (int count = 0; at < segment->end && count < mostElements; ++count) {
        const auto element = elementAt(file, at, segment->end);
        if (!element)
            break;
        if (element->id == clusterId && element->end > element->content)
            layout.sound.push_back({element->content, element->end - element->content});
        at = element->end;
    }
    if (layout.sound.empty())
        return Failure{FailureKind::Malformed, QStringLiteral("Matroska file without sound")};
    return layout;
}

} // namespace trackwise
