// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Dialects.h"
#include "device/library/tags/TagText.h"

namespace trackwise {

TagFields xiphFields(const TagLib::Ogg::XiphComment &comment)
{
    TagFields fields;
    for (const auto &[key, values] : comment.fieldListMap()) {
        const auto meaning = freeFormName(keyOf(key));
        if (!meaning)
            continue;
        for (const auto &value : values)
            fields.add(*meaning, textOf(value));
    }
    return fields;
}

TagLib::ByteVector bestPicture(const TagLib::List<TagLib::FLAC::Picture *> &pictures)
{
    const TagLib::FLAC::Picture *best = nullptr;
    for (const auto *picture : pictures) {
        if (picture->data().isEmpty())
            continue;
        if (!best || (best->type() != TagLib::FLAC::Picture::FrontCover &&
                      picture->type() == TagLib::FLAC::Picture::FrontCover))
            best = picture;
    }
    return best ? best->data() : TagLib::ByteVector();
}

} // namespace trackwise
