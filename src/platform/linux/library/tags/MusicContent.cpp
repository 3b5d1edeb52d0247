// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/MusicContent.h"

#include "platform/linux/library/tags/Dialects.h"
#include "platform/linux/library/tags/TagStream.h"

#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>

namespace trackwise {

namespace {

double secondsOf(const TagLib::AudioProperties *properties)
{
    return properties ? properties->lengthInMilliseconds() / 1000.0 : 0;
}

MusicContent flacContent(TagStream &stream)
{
    TagLib::FLAC::File file(&stream, TagLib::ID3v2::FrameFactory::instance());
    MusicContent content;
    content.durationSeconds = secondsOf(file.audioProperties());
    if (file.hasXiphComment())
        content.fields = xiphFields(*file.xiphComment());
    content.picture = bestPicture(file.pictureList());
    if (content.picture.isEmpty() && file.hasXiphComment())
        content.picture = bestPicture(file.xiphComment()->pictureList());
    return content;
}

} // namespace

MusicContent musicContent(MusicFile &file, const MusicLayout &layout)
{
    TagStream stream(file);
    switch (layout.container) {
    case Container::Flac:
        return flacContent(stream);
    default:
        return {};
    }
}

} // namespace trackwise
