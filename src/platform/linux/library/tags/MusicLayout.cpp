// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/MusicLayout.h"

#include "platform/linux/library/tags/ContainerLayouts.h"

#include <optional>

namespace trackwise {

namespace {

/// Formats that are sound from their first byte to their last, by how they begin.
std::optional<Container> plainContainer(MusicFile::Bytes start)
{
    if (stands(start, 0, "MAC "))
        return Container::MonkeysAudio;
    if (stands(start, 0, "wvpk"))
        return Container::WavPack;
    if (stands(start, 0, "MPCK") || stands(start, 0, "MP+"))
        return Container::Musepack;
    if (stands(start, 0, "TTA1") || stands(start, 0, "TTA2"))
        return Container::TrueAudio;
    return std::nullopt;
}

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
    if (stands(start, 0, "DSD "))
        return dsfLayout(file, begin, end);
    if (stands(start, 0, "FRM8"))
        return dsdiffLayout(file, begin, end);
    if (stands(start, 0, "\x30\x26\xB2\x75\x8E\x66\xCF\x11"))
        return asfLayout(file, begin, end);
    if (stands(start, 0, "\x1A\x45\xDF\xA3"))
        return matroskaLayout(file, begin, end);
    if (const auto container = plainContainer(start))
        return MusicLayout{*container, {{begin, end - begin}}};
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
