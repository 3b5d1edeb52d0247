// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/ContainerLayouts.h"
#include "device/library/tags/Mp4Boxes.h"

#include <algorithm>
#include <array>

namespace trackwise {

namespace {

constexpr int deepest = 10;
constexpr int mostBoxes = 20'000;
constexpr std::array<std::string_view, 12> boxesOfBoxes = {"moov", "udta", "mdia", "meta", "ilst", "stbl",
                                                           "minf", "moof", "traf", "trak", "stsd", "mvex"};

Failure malformed(const char *what)
{
    return {FailureKind::Malformed, QString::fromLatin1(what)};
}

/// Whether the boxes in [begin, end) nest as deep, are as many and lie as a parser may expect. A parser
/// descends into them by recursion, and believes sizes.
bool isSound(MusicFile &file, qint64 begin, qint64 end, int depth, int &count)
{
    while (begin + 8 <= end) {
        const auto box = mp4BoxAt(file, begin, end);
        if (!box) // some writers end a list with zeros; what follows is not looked at
            return bigEndian(file.view(begin, 4), 0, 4) == 0;
        if (++count > mostBoxes)
            return false;
        if (std::ranges::find(boxesOfBoxes, box->name()) != boxesOfBoxes.end() &&
            (depth == deepest || !isSound(file, box->contentBegin(), box->end, depth + 1, count)))
            return false;
        begin = box->end;
    }
    return true;
}

} // namespace

Result<MusicLayout> mp4Layout(MusicFile &file, qint64 begin, qint64 end)
{
    MusicLayout layout{Container::Mp4, {}};
    bool hasMovie = false;
    int count = 0;
    for (auto at = begin; at + 8 <= end && count < mostBoxes; ++count) {
        const auto box = mp4BoxAt(file, at, end);
        if (!box) {
            const auto header = file.view(at, 16);
            const bool toTheEnd = bigEndian(header, 0, 4) == 0;
            if (stands(header, 4, "mdat") && hasMovie) // cut off, or of unknown length: play what there is
                layout.sound.push_back({at + 8, end - at - 8});
            else if (!toTheEnd)
                return malformed("an MP4 box goes past the end of the file");
            break;
        }
        if (box->name() == "moov") {
            hasMovie = true;
            if (!isSound(file, box->contentBegin(), box->end, 1, count))
                return malformed("the MP4 boxes make no sense");
        } else if (box->name() == "mdat" && box->end > box->contentBegin()) {
            layout.sound.push_back({box->contentBegin(), box->end - box->contentBegin()});
        } else if (box->name() == "moof" && !isSound(file, box->contentBegin(), box->end, 1, count)) {
            return malformed("the MP4 boxes make no sense");
        }
        at = box->end;
    }
    if (!hasMovie || layout.sound.empty())
        return malformed("MP4 file without sound");
    return layout;
}

} // namespace trackwise
