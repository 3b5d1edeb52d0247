// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/store/SongSearch.h"

#include "platform/linux/library/store/TextFolding.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace trackwise {

namespace {
using sqlite::Statement;

constexpr qsizetype longestTyped = 256;
constexpr std::size_t mostWords = 12;
constexpr std::int64_t mostByTitle = 300;
constexpr std::int64_t mostByWords = 1000;
constexpr std::int64_t mostByArtist = 300;

struct Typed
{
    std::string text; ///< all words
    std::vector<SearchWord> words;
    std::vector<std::string> runs; ///< characters that were typed without a blank and must stand so
};

Typed understood(const QString &typed)
{
    const QString text = folded(typed.left(longestTyped));
    Typed result;
    result.text = searchText(text);
    result.words = searchWords(result.text);
    if (result.words.size() > mostWords)
        result.words.resize(mostWords);
    for (const QString &part : text.split(u' ', Qt::SkipEmptyParts)) {
        std::string run = searchText(part);
        const std::vector<SearchWord> words = searchWords(run);
        if (words.size() > 1 &&
            std::any_of(words.begin(), words.end(), [](const auto &w) { return w.isWhole; }))
            result.runs.push_back(std::move(run));
    }
    return result;
}

/// The words as the full-text index is asked; empty when there is none that it could hold.
std::string indexQuery(const Typed &typed)
{
    std::string query;
    for (const SearchWord &word : typed.words) {
        const auto first = static_cast<unsigned char>(word.text.front());
        if (first < 0x80 && !std::isalnum(first))
            continue; // punctuation, which the index does not know
        std::string quoted = word.text;
        std::erase(quoted, '"');
        query += '"' + quoted + (word.isWhole ? "\" " : "\"* ");
    }
    return query;
}

bool hasWordStart(std::string_view text, std::string_view word)
{
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        if (at == 0 || text[at - 1] == ' ')
            return true;
    }
    return false;
}

bool hasAllWords(std::string_view text, const Typed &typed)
{
    return std::all_of(typed.words.begin(), typed.words.end(),
                       [text](const SearchWord &word) { return hasWordStart(text, word.text); });
}

struct Texts
{
    std::string_view title, artist, album, albumArtist, composer;
};

enum class Rank {
    IsTitle,
    BeginsTitle,
    InTitle,
    IsArtist,
    BeginsArtist,
    InArtist,
    InTitleAndArtist,
    InAlbum,
    Elsewhere,
};

Rank rankOf(const Texts &song, const Typed &typed)
{
    if (song.title == typed.text)
        return Rank::IsTitle;
    if (song.title.starts_with(typed.text))
        return Rank::BeginsTitle;
    if (hasAllWords(song.title, typed))
        return Rank::InTitle;
    if (song.artist == typed.text || song.albumArtist == typed.text)
        return Rank::IsArtist;
    if (song.artist.starts_with(typed.text) || song.albumArtist.starts_with(typed.text))
        return Rank::BeginsArtist;
    if (hasAllWords(song.artist, typed) || hasAllWords(song.albumArtist, typed))
        return Rank::InArtist;
    const bool isInEither =
        std::all_of(typed.words.begin(), typed.words.end(), [&song](const SearchWord &word) {
            return hasWordStart(song.title, word.text) || hasWordStart(song.artist, word.text) ||
                   hasWordStart(song.albumArtist, word.text);
        });
    if (isInEither)
        return Rank::InTitleAndArtist;
    return hasAllWords(song.album, typed) ? Rank::InAlbum : Rank::Elsewhere;
}

bool hasRuns(const Texts &song, const Typed &typed)
{
    return std::all_of(typed.runs.begin(), typed.runs.end(), [&song](const std::string &run) {
        return hasWordStart(song.title, run) || hasWordStart(song.artist, run) ||
               hasWordStart(song.album, run) || hasWordStart(song.albumArtist, run) ||
               hasWordStart(song.composer, run);
    });
}

struct Found
{
    std::int64_t song = 0;
    Rank rank = Rank::Elsewhere;
    std::string title;

    friend bool operator<(const Found &a, const Found &b)
    {
        return std::tie(a.rank, a.title, a.song) < std::tie(b.rank, b.title, b.song);
    }
};

/// Ranks the rows of @p statement; how many there were.
std::int64_t collect(Statement &statement, const Typed &typed, std::vector<Found> &found)
{
    std::int64_t rows = 0;
    for (; statement.step(); ++rows) {
        const Texts song{statement.utf8(1), statement.utf8(2), statement.utf8(3), statement.utf8(4),
                         statement.utf8(5)};
        if (hasRuns(song, typed))
            found.push_back({statement.integer(0), rankOf(song, typed), std::string(song.title)});
    }
    return rows;
}

void keepBest(std::vector<Found> &found, int limit)
{
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end(),
                            [](const Found &a, const Found &b) { return a.song == b.song; }),
                found.end());
    if (std::ssize(found) > limit)
        found.resize(static_cast<std::size_t>(limit));
}

constexpr const char *byTitle = "SELECT song, title, artist, album, album_artist, composer FROM search_texts"
                                " WHERE title >= ? AND title < ? ORDER BY title LIMIT ?";
constexpr const char *byWords =
    "SELECT t.song, t.title, t.artist, t.album, t.album_artist, t.composer FROM search_index"
    " CROSS JOIN search_texts t ON t.song = search_index.rowid WHERE search_index MATCH ? LIMIT ?";
} // namespace

std::vector<PersistentID> searchSongs(Reader &reader, const QString &text, int limit)
{
    const Typed typed = understood(text);
    if (typed.text.empty())
        return {};
    std::vector<Found> found;
    collect(reader.statement(byTitle).bindText(typed.text).bindText(typed.text + '\xff').bind(mostByTitle),
            typed, found);
    if (const std::string query = indexQuery(typed); !query.empty()) {
        const auto rows = collect(reader.statement(byWords).bindText(query).bind(mostByWords), typed, found);
        if (rows == mostByWords) // there are more; those of a fitting artist must be among the ones looked at
            collect(reader.statement(byWords)
                        .bindText("{artist album_artist} : (" + query + ')')
                        .bind(mostByArtist),
                    typed, found);
    }
    keepBest(found, limit);

    std::vector<PersistentID> songs;
    songs.reserve(found.size());
    for (const Found &match : found) {
        Statement &identifier = reader.statement("SELECT persistent_id FROM songs WHERE id = ?");
        if (identifier.bind(match.song).step())
            songs.push_back({static_cast<std::uint64_t>(identifier.integer(0))});
    }
    return songs;
}

} // namespace trackwise
