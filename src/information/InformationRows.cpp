// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/InformationRows.h"

#include "information/DateFormats.h"

namespace trackwise {

namespace {

constexpr unsigned highestRating = 5;

// A library that does not know when a song was added may give this instant: 2001-01-01 00:00:00 UTC.
constexpr Instant unknownDateAdded{std::chrono::sys_days{std::chrono::year{2001} / 1 / 1}};

QString placeholder()
{
    return QStringLiteral("--");
}

QString textOrPlaceholder(const std::optional<QString> &text)
{
    return text && !text->isEmpty() ? *text : placeholder();
}

QString yesOrNo(bool claim)
{
    return claim ? QStringLiteral("Yes") : QStringLiteral("No");
}

QString countPair(unsigned number, unsigned count)
{
    const QString numberText = number >= 1 ? QString::number(number) : placeholder();
    return count >= 1 ? QStringLiteral("%1 of %2").arg(numberText).arg(count) : numberText;
}

QString stars(unsigned rating)
{
    if (rating > highestRating)
        qFatal("A song has a rating of %u stars; the library promises 0 to %u", rating, highestRating);
    const auto black = static_cast<qsizetype>(rating);
    return QString(black, QChar(0x2605)) + QString(highestRating - black, QChar(0x2606));
}

QString spokenRating(unsigned rating)
{
    if (rating < 1)
        return QStringLiteral("Not rated");
    return rating == 1 ? QStringLiteral("1 star") : QStringLiteral("%1 stars").arg(rating);
}

std::vector<InformationRow> mainRows(const MediaItem &item, const FormatLocale &locale, const QTimeZone &zone)
{
    return {
        {QStringLiteral("Title"), textOrPlaceholder(item.title)},
        {QStringLiteral("Artist"), textOrPlaceholder(item.artist)},
        {QStringLiteral("Album"), textOrPlaceholder(item.albumTitle)},
        {QStringLiteral("Album artist"), textOrPlaceholder(item.albumArtist)},
        {QStringLiteral("Composer"), textOrPlaceholder(item.composer)},
        {QStringLiteral("Genre"), textOrPlaceholder(item.genre)},
        {QStringLiteral("Release date"),
         item.releaseDate ? longDate(*item.releaseDate, locale.dates, zone) : placeholder()},
        {QStringLiteral("Duration"), item.playbackDuration > 0
                                         ? positionalDuration(item.playbackDuration, locale.numbers)
                                         : placeholder()},
        {QStringLiteral("Play count"), QString::number(item.playCount)},
        {QStringLiteral("Last played"),
         item.lastPlayedDate ? longDateShortTime(*item.lastPlayedDate, locale.dates, zone) : placeholder()},
    };
}

std::vector<InformationRow> moreRows(const MediaItem &item, const FormatLocale &locale, const QTimeZone &zone)
{
    const bool knowsDateAdded = item.dateAddedForReal && *item.dateAddedForReal != unknownDateAdded;
    const bool hasLyrics = item.lyrics && !item.lyrics->isEmpty();
    return {
        {QStringLiteral("Grouping"), textOrPlaceholder(item.userGrouping)},
        {QStringLiteral("Track"), countPair(item.albumTrackNumber, item.albumTrackCount)},
        {QStringLiteral("Disc number"), countPair(item.discNumber, item.discCount)},
        {QStringLiteral("Compilation"), yesOrNo(item.isCompilation)},
        {QStringLiteral("Explicit"), yesOrNo(item.isExplicitItem)},
        {QStringLiteral("Rating"), stars(item.rating), spokenRating(item.rating)},
        {QStringLiteral("BPM"),
         item.beatsPerMinute >= 1 ? QString::number(item.beatsPerMinute) : placeholder()},
        {QStringLiteral("Skip count"), QString::number(item.skipCount)},
        {QStringLiteral("Date added"),
         knowsDateAdded ? longDateShortTime(*item.dateAddedForReal, locale.dates, zone) : placeholder()},
        {QStringLiteral("Comments"), textOrPlaceholder(item.comments)},
        {QStringLiteral("Lyrics"), hasLyrics ? QStringLiteral("Show Lyrics") : placeholder(), std::nullopt,
         hasLyrics ? RowAction::ShowLyrics : RowAction::None},
    };
}

} // namespace

QString InformationRow::spoken() const
{
    return title + QStringLiteral(", ") + valueAccessibilityLabel.value_or(value);
}

InformationRow InformationRows::mainRow(int index) const
{
    return main.at(static_cast<size_t>(index));
}

InformationRow InformationRows::moreRow(int index) const
{
    return more.at(static_cast<size_t>(index));
}

InformationRows informationRows(const MediaItem &item, const FormatLocale &locale, const QTimeZone &zone)
{
    return {mainRows(item, locale, zone), moreRows(item, locale, zone)};
}

} // namespace trackwise
