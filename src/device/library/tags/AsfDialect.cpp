// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Dialects.h"
#include "device/library/tags/TagText.h"

#include <taglib/asfpicture.h>

#include <algorithm>
#include <array>

namespace trackwise {

namespace {

using TagLib::ASF::Attribute;

struct Name
{
    std::string_view key;
    Field field;
    int rank = 0;
};

/// Names in upper case.
constexpr std::array names = {
    Name{"AUTHOR", Field::Artist},
    Name{"WM/ALBUMARTIST", Field::AlbumArtist},
    Name{"WM/ALBUMARTISTSORTORDER", Field::AlbumArtistSort},
    Name{"WM/ALBUMSORTORDER", Field::AlbumSort},
    Name{"WM/ALBUMTITLE", Field::Album},
    Name{"WM/ARTISTSORTORDER", Field::ArtistSort},
    Name{"WM/BARCODE", Field::Barcode},
    Name{"WM/BEATSPERMINUTE", Field::BeatsPerMinute},
    Name{"WM/CATALOGNO", Field::CatalogNumber},
    Name{"WM/COMPOSER", Field::Composer},
    Name{"WM/COMPOSERSORTORDER", Field::ComposerSort},
    Name{"WM/CONTENTGROUPDESCRIPTION", Field::Grouping},
    Name{"WM/GENRE", Field::Genre},
    Name{"WM/INITIALKEY", Field::MusicalKey},
    Name{"WM/ISCOMPILATION", Field::Compilation},
    Name{"WM/ISRC", Field::Isrc},
    Name{"WM/LYRICS", Field::Lyrics},
    Name{"WM/ORIGINALRELEASETIME", Field::OriginalDate},
    Name{"WM/ORIGINALRELEASEYEAR", Field::OriginalDate, 1},
    Name{"WM/PARENTALRATING", Field::Advisory, 20},
    Name{"WM/PARTOFSET", Field::Disc},
    Name{"WM/PUBLISHER", Field::Label},
    Name{"WM/TITLESORTORDER", Field::TitleSort},
    Name{"WM/TRACKNUMBER", Field::Track},
    Name{"WM/YEAR", Field::ReleaseDate},
};
static_assert(std::ranges::is_sorted(names, {}, &Name::key));

QString textOfAttribute(const Attribute &attribute)
{
    switch (attribute.type()) {
    case Attribute::UnicodeType:
        return textOf(attribute.toString());
    case Attribute::BoolType:
        return attribute.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case Attribute::DWordType:
        return QString::number(attribute.toUInt());
    case Attribute::QWordType:
        return QString::number(attribute.toULongLong());
    case Attribute::WordType:
        return QString::number(attribute.toUShort());
    case Attribute::BytesType:
    case Attribute::GuidType:
        break;
    }
    return {};
}

/// One to five stars are kept as 1, 25, 50, 75 and 99.
void addSharedRating(TagFields &fields, const Attribute &attribute)
{
    const auto value = textOfAttribute(attribute).toInt();
    if (value > 0)
        fields.add(Field::RatingPercent, QString::number(20 * (1 + std::clamp((value + 12) / 25, 0, 4))));
}

void addAttribute(TagFields &fields, std::string_view key, const Attribute &attribute)
{
    if (key == "WM/SHAREDUSERRATING") {
        addSharedRating(fields, attribute);
    } else if (const auto name = std::ranges::lower_bound(names, key, {}, &Name::key);
               name != names.end() && name->key == key) {
        fields.add(name->field, textOfAttribute(attribute), name->rank);
    } else if (const auto meaning = TagFields::meaning(key)) {
        fields.add(meaning->field, textOfAttribute(attribute), meaning->rank + 10);
    }
}

} // namespace

TagFields asfFields(const TagLib::ASF::Tag &tag)
{
    TagFields fields;
    fields.add(Field::Title, textOf(tag.title()));
    fields.add(Field::Artist, textOf(tag.artist()));
    fields.add(Field::Comments, textOf(tag.comment()));
    fields.add(Field::Copyright, textOf(tag.copyright()));
    for (const auto &[key, attributes] : tag.attributeListMap()) {
        const auto name = keyOf(key);
        for (const auto &attribute : attributes)
            addAttribute(fields, name, attribute);
    }
    return fields;
}

TagLib::ByteVector bestPicture(const TagLib::ASF::Tag &tag)
{
    TagLib::ByteVector best;
    for (const auto &attribute : tag.attribute("WM/Picture")) {
        const auto picture = attribute.toPicture();
        const bool isFront = picture.type() == TagLib::ASF::Picture::FrontCover;
        if (picture.isValid() && (best.isEmpty() || isFront))
            best = picture.picture();
        if (isFront && !best.isEmpty())
            break;
    }
    return best;
}

} // namespace trackwise
