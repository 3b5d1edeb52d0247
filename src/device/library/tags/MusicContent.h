// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicLayout.h"
#include "device/library/tags/TagFields.h"

#include <taglib/tbytevector.h>

namespace trackwise {

/// What a parser found in one file.
struct MusicContent
{
    TagFields fields;
    TagLib::ByteVector picture; ///< embedded front cover, else another embedded picture; empty for none
    double durationSeconds = 0;

    /// Takes a tag's fields where no better tag had them, and its picture if there is none yet.
    void takeFrom(const TagFields &tag, const TagLib::ByteVector &cover = {})
    {
        fields.fillGapsFrom(tag);
        if (picture.isEmpty())
            picture = cover;
    }
};

/// Reads a file whose layout is known. A duration of zero or less: no parser could find sound in it.
[[nodiscard]] MusicContent musicContent(MusicFile &file, const MusicLayout &layout);

} // namespace trackwise
