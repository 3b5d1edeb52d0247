// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SongColumns.h"

#include "device/library/tags/FileArtwork.h"

#include <array>

namespace trackwise {

namespace {
using sqlite::Statement;

template <auto Tag, auto Value>
constexpr SongColumn text(const char *name)
{
    return {name, [](Statement &statement, const SongTags &tags) { statement.bind(tags.*Tag); },
            [](MediaItem &item, const Statement &row, int column) { item.*Value = row.optionalText(column); },
            [](MediaItem &item, const SongTags &tags) { item.*Value = tags.*Tag; }};
}

/// A text that the tags keep as a list: @p Tag gives it as one.
template <auto Tag, auto Value>
constexpr SongColumn joinedText(const char *name)
{
    return {name, [](Statement &statement, const SongTags &tags) { statement.bind((tags.*Tag)()); },
            [](MediaItem &item, const Statement &row, int column) { item.*Value = row.optionalText(column); },
            [](MediaItem &item, const SongTags &tags) { item.*Value = (tags.*Tag)(); }};
}

/// Zero where the tags do not say it.
template <auto Tag, auto Value>
constexpr SongColumn count(const char *name)
{
    return {name,
            [](Statement &statement, const SongTags &tags) {
                statement.bind(std::int64_t{(tags.*Tag).value_or(0)});
            },
            [](MediaItem &item, const Statement &row, int column) {
                item.*Value = static_cast<unsigned>(row.integer(column));
            },
            [](MediaItem &item, const SongTags &tags) { item.*Value = (tags.*Tag).value_or(0); }};
}

template <typename Number>
std::optional<std::int64_t> stored(const std::optional<Number> &number)
{
    return number ? std::optional(std::int64_t{*number}) : std::nullopt;
}

constexpr std::array columns = {
    text<&SongTags::title, &MediaItem::title>("title"),
    joinedText<&SongTags::displayArtist, &MediaItem::artist>("artist"),
    text<&SongTags::albumTitle, &MediaItem::albumTitle>("album_title"),
    text<&SongTags::albumArtist, &MediaItem::albumArtist>("album_artist"),
    text<&SongTags::composer, &MediaItem::composer>("composer"),
    joinedText<&SongTags::displayGenre, &MediaItem::genre>("genre"),
    text<&SongTags::grouping, &MediaItem::userGrouping>("user_grouping"),
    count<&SongTags::beatsPerMinute, &MediaItem::beatsPerMinute>("beats_per_minute"),
    count<&SongTags::trackNumber, &MediaItem::albumTrackNumber>("track_number"),
    count<&SongTags::trackCount, &MediaItem::albumTrackCount>("track_count"),
    count<&SongTags::discNumber, &MediaItem::discNumber>("disc_number"),
    count<&SongTags::discCount, &MediaItem::discCount>("disc_count"),
    SongColumn{
        "release_date",
        [](Statement &statement, const SongTags &tags) {
            statement.bind(tags.releaseDate ? std::optional(tags.releaseDate->text) : std::nullopt);
        },
        [](MediaItem &item, const Statement &row, int column) {
            if (const auto date = PartialDate::fromText(row.text(column)))
                item.releaseDate = date->start();
        },
        [](MediaItem &item, const SongTags &tags) {
            if (tags.releaseDate)
                item.releaseDate = tags.releaseDate->start();
        },
    },
    SongColumn{
        "duration",
        [](Statement &statement, const SongTags &tags) { statement.bind(tags.durationSeconds); },
        [](MediaItem &item, const Statement &row, int column) { item.playbackDuration = row.real(column); },
        [](MediaItem &item, const SongTags &tags) { item.playbackDuration = tags.durationSeconds; },
    },
    SongColumn{
        "is_compilation",
        [](Statement &statement, const SongTags &tags) { statement.bind(std::int64_t{tags.isCompilation}); },
        [](MediaItem &item, const Statement &row, int column) {
            item.isCompilation = row.integer(column) != 0;
        },
        [](MediaItem &item, const SongTags &tags) { item.isCompilation = tags.isCompilation; },
    },
    SongColumn{
        "is_explicit",
        [](Statement &statement, const SongTags &tags) {
            statement.bind(std::int64_t{tags.advisory == Advisory::Explicit});
        },
        [](MediaItem &item, const Statement &row, int column) {
            item.isExplicitItem = row.integer(column) != 0;
        },
        [](MediaItem &item, const SongTags &tags) {
            item.isExplicitItem = tags.advisory == Advisory::Explicit;
        },
    },
    SongColumn{
        "rating_percent",
        [](Statement &statement, const SongTags &tags) { statement.bind(stored(tags.ratingPercent)); },
        [](MediaItem &item, const Statement &row, int column) {
            SongTags tags;
            if (const auto percent = row.optionalInteger(column))
                tags.ratingPercent = static_cast<int>(*percent);
            item.rating = tags.stars();
        },
        [](MediaItem &item, const SongTags &tags) { item.rating = tags.stars(); },
    },
    SongColumn{
        "catalog_id",
        [](Statement &statement, const SongTags &tags) { statement.bind(tags.catalogID); },
        [](MediaItem &item, const Statement &row, int column) { item.playbackStoreID = row.text(column); },
        [](MediaItem &item, const SongTags &tags) {
            item.playbackStoreID = tags.catalogID.value_or(QString());
        },
    },
    SongColumn{
        "recording_mbid",
        [](Statement &statement, const SongTags &tags) {
            statement.bind(tags.recordingMBID ? std::optional(tags.recordingMBID->toLower()) : std::nullopt);
        },
    },
    SongColumn{
        "tag_play_count", // the library's own count goes before it
        [](Statement &statement, const SongTags &tags) { statement.bind(stored(tags.playCount)); },
        nullptr,
        [](MediaItem &item, const SongTags &tags) { item.playCount = tags.playCount.value_or(0); },
    },
};
} // namespace

std::span<const SongColumn> songColumns()
{
    return columns;
}

MediaItem itemOf(const SongTags &tags, const std::optional<ArtworkSummary> &folderImage)
{
    MediaItem item;
    for (const SongColumn &column : columns) {
        if (column.fill)
            column.fill(item, tags);
    }
    item.comments = tags.comments;
    item.lyrics = tags.lyrics;
    const bool hasOwnArtwork = tags.artwork.place == ArtworkSummary::Place::Embedded;
    item.artwork =
        FileArtwork::fromSummary(hasOwnArtwork ? tags.artwork : folderImage.value_or(ArtworkSummary{}));
    return item;
}

} // namespace trackwise
