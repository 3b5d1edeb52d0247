// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Lyrics.h"
#include "device/library/tags/TagFields.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace trackwise {

namespace {

using Numbers = std::pair<std::optional<unsigned>, std::optional<unsigned>>;

std::optional<QString> firstOf(const TagFields &fields, Field field)
{
    const auto &values = fields.values(field);
    return values.isEmpty() ? std::nullopt : std::optional(values.front());
}

std::optional<double> number(const std::optional<QString> &text)
{
    if (!text)
        return std::nullopt;
    bool isNumber = false;
    const auto value = QLocale::c().toDouble(text->trimmed().replace(u',', u'.'), &isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// The number that a text begins with: "128 BPM", "7th".
std::optional<double> leadingNumber(const std::optional<QString> &text)
{
    static const QRegularExpression start(QStringLiteral(R"(^\s*[+-]?[0-9]+(?:[.,][0-9]+)?)"));
    const auto match = start.match(text.value_or(QString()));
    return match.hasMatch() ? number(match.captured()) : std::nullopt;
}

std::optional<unsigned> count(const std::optional<QString> &text)
{
    const auto value = leadingNumber(text);
    if (!value || *value < 0 || *value > 4e9)
        return std::nullopt;
    return static_cast<unsigned>(std::lround(*value));
}

std::optional<unsigned> aboveZero(std::optional<unsigned> value)
{
    return value == 0U ? std::nullopt : value;
}

/// "3", "03", "3/12" or "3 of 12"; the total can also stand in a field of its own.
Numbers numbers(const TagFields &fields, Field position, Field total)
{
    const auto text = firstOf(fields, position).value_or(QString());
    static const QRegularExpression between(QStringLiteral(R"([0-9]\s*(?:/|of|von|de|di)\s*([0-9]+))"),
                                            QRegularExpression::CaseInsensitiveOption);
    auto second = aboveZero(count(firstOf(fields, total)));
    if (!second)
        second = aboveZero(count(between.match(text).captured(1)));
    return {aboveZero(count(text)), second};
}

std::optional<PartialDate> date(const TagFields &fields, Field field)
{
    for (const auto &text : fields.values(field)) {
        if (auto found = PartialDate::fromText(text))
            return found;
    }
    return std::nullopt;
}

bool isTrue(const std::optional<QString> &text)
{
    if (!text)
        return false;
    const auto value = text->trimmed().toLower();
    return value == u"true" || value == u"yes" || number(value).value_or(0) != 0;
}

std::optional<Advisory> advisory(const std::optional<QString> &text)
{
    if (!text)
        return std::nullopt;
    const auto value = text->trimmed().toLower();
    if (value == u"1" || value == u"4" || value == u"explicit")
        return Advisory::Explicit;
    return value == u"2" || value == u"clean" ? Advisory::Clean : Advisory::None;
}

/// "★★★", "★★★☆☆", "★★★½": what a program shows, written as it is.
std::optional<int> drawnRating(const QString &text)
{
    static const QRegularExpression stars(QStringLiteral("^\\s*(★{0,5})\\s*(½?)\\s*☆{0,5}\\s*$"));
    const auto match = stars.match(text);
    if (!match.hasMatch() || text.trimmed().isEmpty())
        return std::nullopt;
    return static_cast<int>(
        std::min<qsizetype>(100, 20 * match.capturedLength(1) + 10 * match.capturedLength(2)));
}

/// A rating of unknown scale: up to 1 with a dot is a fraction, 1 to 5 are stars, 6 to 10 half stars,
/// more is a percentage.
std::optional<int> looseRating(const std::optional<QString> &text)
{
    if (const auto drawn = drawnRating(text.value_or(QString())))
        return drawn;
    const auto value = number(text);
    if (!value || *value < 0 || *value > 100)
        return std::nullopt;
    const bool isFraction = *value <= 1 && (text->contains(u'.') || text->contains(u','));
    const auto scale = isFraction ? 100 : *value <= 5 ? 20 : *value <= 10 ? 10 : 1;
    return static_cast<int>(std::lround(*value * scale));
}

std::optional<int> rating(const TagFields &fields)
{
    if (const auto fraction = number(firstOf(fields, Field::RatingFraction));
        fraction && *fraction >= 0 && *fraction <= 1)
        return static_cast<int>(std::lround(*fraction * 100));
    if (const auto percent = number(firstOf(fields, Field::RatingPercent));
        percent && *percent >= 0 && *percent <= 100)
        return static_cast<int>(std::lround(*percent));
    return looseRating(firstOf(fields, Field::RatingLoose));
}

std::optional<QString> lyrics(const TagFields &fields)
{
    const auto text =
        fields.has(Field::Lyrics) ? firstOf(fields, Field::Lyrics) : firstOf(fields, Field::SyncedLyrics);
    if (!text)
        return std::nullopt;
    const auto plain = withoutTimeMarks(*text);
    return plain.isEmpty() ? std::nullopt : std::optional(plain);
}

} // namespace

SongTags songTags(const TagFields &fields)
{
    const auto [track, trackCount] = numbers(fields, Field::Track, Field::TrackCount);
    const auto [disc, discCount] = numbers(fields, Field::Disc, Field::DiscCount);
    SongTags tags{
        .artists = fields.values(Field::Artist),
        .genres = fields.values(Field::Genre),
        .lyrics = lyrics(fields),
        .releaseDate = date(fields, Field::ReleaseDate),
        .ratingPercent = rating(fields),
        .playCount = count(firstOf(fields, Field::PlayCount)),
        .beatsPerMinute = aboveZero(count(firstOf(fields, Field::BeatsPerMinute))),
        .trackNumber = track,
        .trackCount = trackCount,
        .discNumber = disc,
        .discCount = discCount,
        .isCompilation = isTrue(firstOf(fields, Field::Compilation)),
        .advisory = advisory(firstOf(fields, Field::Advisory)),
    };
    for (const auto &[field, take, member] : plainTexts()) {
        if (fields.has(field))
            tags.*member = take == PlainText::Take::All ? fields.values(field).join(QStringLiteral(", "))
                                                        : fields.values(field).front();
    }
    return tags;
}

} // namespace trackwise
