// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/MusicLayout.h"

#include "platform/linux/library/tags/ContainerLayouts.h"

namespace trackwise {

namespace {

Result<MusicLayout> layoutBetween(MusicFile &file, qint64 begin, qint64 end)
{
    const auto start = file.view(begin, 16);
    if (stands(start, 0, "fLaC"))
        return flacLayout(file, begin, end);
    if (stands(start, 0, "OggS"))
        return oggLayout(file, begin, end);
    if (stands(start, 4, "ftyp"))
        return mp4Layout(file, begin, end);
    if (stands(start, 0, "RIFF") && stands(start, 8, "WAVE"))
        return wavLayout(file, begin, end);
    if (stands(start, 0, "FORM") && (stands(start, 8, "AIFF") || stands(start, 8, "AIFC")))
        return aiffLayout(file, begin, end);
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
