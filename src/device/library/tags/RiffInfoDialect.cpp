// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Dialects.h"
#include "device/library/tags/TagText.h"

#include <array>

namespace trackwise {

TagFields riffInfoFields(const TagLib::RIFF::Info::Tag &tag)
{
    struct Chunk
    {
        const char *id;
        Field field;
        int rank = 0;
    };
    static constexpr std::array chunks = {
        Chunk{"INAM", Field::Title},    Chunk{"IART", Field::Artist},   Chunk{"IPRD", Field::Album},
        Chunk{"ICMT", Field::Comments}, Chunk{"IGNR", Field::Genre},    Chunk{"ICRD", Field::ReleaseDate},
        Chunk{"IPRT", Field::Track},    Chunk{"ITRK", Field::Track, 1}, Chunk{"ICOP", Field::Copyright},
        Chunk{"IMUS", Field::Composer},
    };
    TagFields fields;
    for (const auto &chunk : chunks)
        fields.add(chunk.field, textOf(tag.fieldText(chunk.id)), chunk.rank);
    return fields;
}

} // namespace trackwise
