// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Dialects.h"
#include "device/library/tags/TagText.h"

namespace trackwise {

TagFields riffInfoFields(const TagLib::RIFF::Info::Tag &tag)
{
    TagFields fields;
    for (const FieldName &chunk : riffInfoNames())
        fields.add(chunk,
                   textOf(tag.fieldText({chunk.name.data(), static_cast<unsigned>(chunk.name.size())})));
    return fields;
}

} // namespace trackwise
