// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Dialects.h"
#include "device/library/tags/TagText.h"

#include <taglib/asfpicture.h>

#include <algorithm>

namespace trackwise {

namespace {

using TagLib::ASF::Attribute;

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
    } else if (const auto own = asfName(key)) {
        fields.add(*own, textOfAttribute(attribute));
    } else if (const auto name = freeFormName(key)) {
        fields.add(name->field, textOfAttribute(attribute), name->rank + 10);
    }
}

} // namespace

TagFields asfFields(const TagLib::ASF::Tag &tag)
{
    TagFields fields;
    fields.add(Field::Title, textOf(tag.title()));
    fields.add(Field::Artist, textOf(tag.artist()));
    fields.add(Field::Comments, textOf(tag.comment()));
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
        if (!picture.isValid() || picture.picture().isEmpty())
            continue;
        if (picture.type() == TagLib::ASF::Picture::FrontCover)
            return picture.picture();
        if (best.isEmpty())
            best = picture.picture();
    }
    return best;
}

} // namespace trackwise
