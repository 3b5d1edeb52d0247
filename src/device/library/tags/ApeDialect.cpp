// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Dialects.h"
#include "device/library/tags/TagText.h"

namespace trackwise {

TagFields apeFields(const TagLib::APE::Tag &tag)
{
    TagFields fields;
    for (const auto &[key, item] : tag.itemListMap()) {
        if (item.type() != TagLib::APE::Item::Text)
            continue;
        const auto meaning = freeFormName(keyOf(key));
        if (!meaning)
            continue;
        for (const auto &value : item.values())
            fields.add(*meaning, textOf(value));
    }
    return fields;
}

/// A picture is a file name, a zero byte and the file.
TagLib::ByteVector bestPicture(const TagLib::APE::Tag &tag)
{
    TagLib::ByteVector best;
    for (const auto &[key, item] : tag.itemListMap()) {
        const auto name = keyOf(key);
        const bool isFront = name == "COVER ART (FRONT)";
        if (item.type() != TagLib::APE::Item::Binary || !name.starts_with("COVER ART (") ||
            (!best.isEmpty() && !isFront))
            continue;
        const auto data = item.binaryData();
        if (const auto zero = data.find('\0'); zero >= 0)
            best = data.mid(static_cast<unsigned>(zero) + 1);
    }
    return best;
}

} // namespace trackwise
