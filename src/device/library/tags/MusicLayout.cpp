// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/MusicLayout.h"

#include "device/library/tags/ContainerLayouts.h"
#include "device/library/tags/MusicFormats.h"

#include <algorithm>

namespace trackwise {

namespace {

Result<MusicLayout> layoutBetween(MusicFile &file, qint64 begin, qint64 end)
{
    const auto start = file.view(begin, 32);
    for (const auto &format : musicFormats()) {
        const auto standsThere = [&](const auto &mark) { return stands(start, mark.at, mark.bytes); };
        if (format.layout && std::ranges::all_of(format.signature, standsThere))
            return format.layout(file, begin, end);
    }
    if (auto layout = frameLayout(file, begin, end))
        return *std::move(layout);
    return Failure{FailureKind::Unsupported, QStringLiteral("not an audio file")};
}

} // namespace

Result<MusicLayout> musicLayout(MusicFile &file)
{
    const auto outer = outerTags(file);
    if (!outer)
        return outer.failure();
    auto layout = layoutBetween(file, outer->soundBegin, outer->soundEnd);
    if (layout)
        layout->outer = *outer;
    return layout;
}

} // namespace trackwise
