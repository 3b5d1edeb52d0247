// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Dialects.h"
#include "device/library/tags/TagText.h"

#include <taglib/mp4coverart.h>
#include <taglib/mp4item.h>

#include <algorithm>
#include <array>

namespace trackwise {

namespace {

using TagLib::MP4::Item;

enum class Kind : std::uint8_t { Text, Byte, Int, UInt, LongLong, Bool, Pair };

struct Atom
{
    std::string_view name;
    Kind kind;
    Field field;
    Field second = Field::Last; ///< of a pair
};

constexpr std::array atoms = {
    Atom{"aART", Kind::Text, Field::AlbumArtist},
    Atom{"atID", Kind::UInt, Field::ArtistCatalogID},
    Atom{"cnID", Kind::UInt, Field::CatalogID},
    Atom{"cpil", Kind::Bool, Field::Compilation},
    Atom{"cprt", Kind::Text, Field::Copyright},
    Atom{"disk", Kind::Pair, Field::Disc, Field::DiscCount},
    Atom{"plID", Kind::LongLong, Field::AlbumCatalogID},
    Atom{"rate", Kind::Text, Field::RatingPercent},
    Atom{"rtng", Kind::Byte, Field::Advisory},
    Atom{"soaa", Kind::Text, Field::AlbumArtistSort},
    Atom{"soal", Kind::Text, Field::AlbumSort},
    Atom{"soar", Kind::Text, Field::ArtistSort},
    Atom{"soco", Kind::Text, Field::ComposerSort},
    Atom{"sonm", Kind::Text, Field::TitleSort},
    Atom{"stik", Kind::Byte, Field::MediaKind},
    Atom{"tmpo", Kind::Int, Field::BeatsPerMinute},
    Atom{"trkn", Kind::Pair, Field::Track, Field::TrackCount},
    Atom{"\251ART", Kind::Text, Field::Artist},
    Atom{"\251alb", Kind::Text, Field::Album},
    Atom{"\251cmt", Kind::Text, Field::Comments},
    Atom{"\251day", Kind::Text, Field::ReleaseDate},
    Atom{"\251gen", Kind::Text, Field::Genre},
    Atom{"\251grp", Kind::Text, Field::Grouping},
    Atom{"\251lyr", Kind::Text, Field::Lyrics},
    Atom{"\251nam", Kind::Text, Field::Title},
    Atom{"\251wrt", Kind::Text, Field::Composer},
};
static_assert(std::ranges::is_sorted(atoms, {}, &Atom::name));

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

void addAtom(TagFields &fields, const Atom &atom, const Item &item)
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
    case Kind::LongLong:
        if (item.toLongLong() != 0)
            addNumber(fields, atom.field, item.toLongLong());
        return;
    case Kind::Bool:
        return addNumber(fields, atom.field, item.toBool() ? 1 : 0);
    case Kind::Pair:
        addNumber(fields, atom.field, item.toIntPair().first);
        addNumber(fields, atom.second, item.toIntPair().second);
        return;
    }
}

/// "Vendor:isrc:USABC1234567"
void addVendorID(TagFields &fields, const Item &item)
{
    for (const auto &value : item.toStringList()) {
        const auto text = textOf(value);
        if (const auto at = text.indexOf(u":isrc:"); at >= 0)
            fields.add(Field::Isrc, text.mid(at + 6), freeFormRank + 1);
    }
}

} // namespace

TagFields mp4Fields(const TagLib::MP4::Tag &tag)
{
    TagFields fields;
    for (const auto &[key, item] : tag.itemMap()) {
        const auto name = key.to8Bit();
        if (name.starts_with("----:")) {
            const auto meaning =
                TagFields::meaning(keyOf(key.substr(static_cast<unsigned>(name.rfind(':') + 1))));
            if (meaning)
                addTexts(fields, meaning->field, meaning->rank + freeFormRank, item.toStringList());
        } else if (name == "xid ") {
            addVendorID(fields, item);
        } else if (const auto atom = std::ranges::lower_bound(atoms, std::string_view(name), {}, &Atom::name);
                   atom != atoms.end() && atom->name == name) {
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
