// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Dialects.h"
#include "device/library/tags/TagText.h"

#include <taglib/mp4coverart.h>
#include <taglib/mp4item.h>

namespace trackwise {

namespace {

using TagLib::MP4::Item;

using Kind = Mp4Atom::Kind;

constexpr int freeFormRank = 10; ///< an atom of its own goes before a free-form one

void addNumber(TagFields &fields, Field field, long long number)
{
    fields.add(field, QString::number(number));
}

void addTexts(TagFields &fields, Field field, int rank, const TagLib::StringList &texts)
{
    for (const auto &text : texts)
        fields.add(field, textOf(text), rank);
}

void addAtom(TagFields &fields, const Mp4Atom &atom, const Item &item)
{
    switch (atom.kind) {
    case Kind::Text:
        return addTexts(fields, atom.field, 0, item.toStringList());
    case Kind::Byte:
        return addNumber(fields, atom.field, item.toByte());
    case Kind::Int:
        return addNumber(fields, atom.field, item.toInt());
    case Kind::UInt:
        if (item.toUInt() != 0) // a larger number in eight bytes comes as zero
            addNumber(fields, atom.field, item.toUInt());
        return;
    case Kind::Bool:
        return addNumber(fields, atom.field, item.toBool() ? 1 : 0);
    case Kind::Pair:
        addNumber(fields, atom.field, item.toIntPair().first);
        addNumber(fields, atom.second, item.toIntPair().second);
        return;
    }
}

} // namespace

TagFields mp4Fields(const TagLib::MP4::Tag &tag)
{
    TagFields fields;
    for (const auto &[key, item] : tag.itemMap()) {
        const auto name = key.to8Bit();
        if (name.starts_with("----:")) {
            const auto meaning = freeFormName(keyOf(key.substr(static_cast<unsigned>(name.rfind(':') + 1))));
            if (meaning)
                addTexts(fields, meaning->field, meaning->rank + freeFormRank, item.toStringList());
        } else if (const auto atom = mp4Atom(name)) {
            addAtom(fields, *atom, item);
        }
    }
    return fields;
}

TagLib::ByteVector bestPicture(const TagLib::MP4::Tag &tag)
{
    const auto covers = tag.item("covr").toCoverArtList();
    return covers.isEmpty() ? TagLib::ByteVector() : covers.front().data();
}

} // namespace trackwise
