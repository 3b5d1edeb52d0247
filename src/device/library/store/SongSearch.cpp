// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SongSearch.h"

#include "device/library/store/SearchWords.h"
#include "device/library/store/TextFolding.h"

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

struct Spelling
{
    std::string text; ///< all words
    std::vector<SearchWord> words;
    std::string whole; ///< see wholeName()
};

struct Typed
{
    std::vector<Spelling> spellings;
    std::vector<std::string> runs; ///< characters that were typed without a blank and must stand so
};

Typed understood(const QString &typed)
{
    const QString text = folded(typed.left(longestTyped));
    Typed result;
    for (std::string &spelled : spellings(text)) {
        std::vector<SearchWord> words = searchWords(spelled);
        if (words.size() > mostWords)
            words.resize(mostWords);
        if (!words.empty()) {
            std::string whole = wholeName(spelled);
            result.spellings.push_back({std::move(spelled), std::move(words), std::move(whole)});
        }
    }
    for (const QString &part : text.split(u' ', Qt::SkipEmptyParts)) {
        std::string run = searchText(part);
        const std::vector<SearchWord> words = searchWords(run);
        if (words.size() > 1 &&
            std::any_of(words.begin(), words.end(), [](const auto &w) { return w.isWhole; }))
            result.runs.push_back(std::move(run));
    }
    return result;
}

std::string quoted(std::string word)
{
    std::erase(word, '"');
    return '"' + word + '"';
}

void addAlternative(std::string &query, const std::string &alternative)
{
    if (!alternative.empty())
        query += (query.empty() ? "(" : " OR (") + alternative + ')';
}

/// The words as the full-text index is asked; empty when there is none that it could hold.
std::string indexQuery(const Typed &typed)
{
    std::string query;
    for (const Spelling &spelling : typed.spellings) {
        std::string words;
        for (const SearchWord &word : spelling.words) {
            const auto first = static_cast<unsigned char>(word.text.front());
            if (first >= 0x80 || std::isalnum(first)) // the index does not know punctuation
                words += quoted(word.text) + (word.isWhole ? " " : "* ");
        }
        addAlternative(query, words);
    }
    return query;
}

/// The artists whose whole name was typed.
std::string artistQuery(const Typed &typed)
{
    std::string query;
    for (const Spelling &spelling : typed.spellings)
        addAlternative(query, quoted(spelling.whole));
    return query;
}

bool beginsWord(std::string_view text, std::size_t at)
{
    return at == 0 || text[at - 1] == ' ' || text[at - 1] == '\n';
}

bool hasWordStart(std::string_view text, std::string_view word)
{
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        if (beginsWord(text, at))
            return true;
    }
    return false;
}

bool hasWord(std::string_view text, std::string_view word)
{
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if (beginsWord(text, at) && (end == text.size() || text[end] == ' '))
            return true;
    }
    return false;
}

bool hasAllWords(std::string_view text, const Spelling &typed)
{
    return std::all_of(typed.words.begin(), typed.words.end(),
                       [text](const SearchWord &word) { return hasWordStart(text, word.text); });
}

/// Whether the texts differ in blanks alone: "acdc" is "AC/DC".
bool areOneName(std::string_view a, std::string_view b)
{
    std::size_t i = 0;
    for (const char c : a) {
        if (c == ' ')
            continue;
        while (i < b.size() && b[i] == ' ')
            ++i;
        if (i == b.size() || b[i++] != c)
            return false;
    }
    return i == b.size();
}

struct Texts
{
    std::string_view title, artist, album, albumArtist, composer;
};

enum class Rank {
    IsArtist,
    IsNearlyArtist, ///< but for an article, or a sign for a letter; or one of several artists
    IsTitle,
    BeginsTitle,
    InTitle,
    BeginsArtist,
    InArtist,
    InTitleAndArtist,
    InAlbum,
    Elsewhere,
};

Rank rankOf(const Texts &song, const Spelling &typed)
{
    const auto isArtist = [&typed](std::string_view artist) {
        return areOneName(searchTextIn(artist), typed.text);
    };
    if (isArtist(song.artist) || isArtist(song.albumArtist))
        return Rank::IsArtist;
    if (hasWord(song.artist, typed.whole) || hasWord(song.albumArtist, typed.whole))
        return Rank::IsNearlyArtist;
    if (areOneName(searchTextIn(song.title), typed.text))
        return Rank::IsTitle;
    if (song.title.starts_with(typed.text))
        return Rank::BeginsTitle;
    if (hasAllWords(song.title, typed))
        return Rank::InTitle;
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

Rank rankOf(const Texts &song, const Typed &typed)
{
    Rank best = Rank::Elsewhere;
    for (const Spelling &spelling : typed.spellings)
        best = std::min(best, rankOf(song, spelling));
    return best;
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

/// Songs of the artist and songs of the title that was typed, which are at the front, take turns: neither
/// hides the other behind a long list.
void letTakeTurns(std::vector<Found> &found)
{
    const auto isAfter = [](Rank rank) { return [rank](const Found &f) { return f.rank > rank; }; };
    const auto titles = std::find_if(found.begin(), found.end(), isAfter(Rank::IsNearlyArtist));
    const auto others = std::find_if(titles, found.end(), isAfter(Rank::IsTitle));
    std::vector<Found> mixed;
    for (auto artist = found.begin(), title = titles; artist != titles || title != others;) {
        if (artist != titles)
            mixed.push_back(std::move(*artist++));
        if (title != others)
            mixed.push_back(std::move(*title++));
    }
    std::move(mixed.begin(), mixed.end(), found.begin());
}

void keepBest(std::vector<Found> &found, int limit)
{
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end(),
                            [](const Found &a, const Found &b) { return a.song == b.song; }),
                found.end());
    letTakeTurns(found);
    if (std::ssize(found) > limit)
        found.resize(static_cast<std::size_t>(limit));
}

constexpr const char *byTitle = "SELECT song, title, artist, album, album_artist, composer FROM search_texts"
                                " WHERE title >= ? AND title < ? ORDER BY title LIMIT ?";
constexpr const char *byWords =
    "SELECT t.song, t.title, t.artist, t.album, t.album_artist, t.composer FROM search_index"
    " CROSS JOIN search_texts t ON t.song = search_index.rowid WHERE search_index MATCH ? LIMIT ?";
} // namespace

std::vector<PersistentID> searchSongs(ReadConnection &connection, const QString &text, int limit)
{
    const Typed typed = understood(text);
    if (typed.spellings.empty())
        return {};
    std::vector<Found> found;
    const std::string &asTyped = typed.spellings.front().text;
    collect(connection.statement(byTitle).bindText(asTyped).bindText(asTyped + '\xff').bind(mostByTitle),
            typed, found);
    if (const std::string query = indexQuery(typed); !query.empty()) {
        const auto find = [&](const std::string &words, std::int64_t most) {
            return collect(connection.statement(byWords).bindText(words).bind(most), typed, found);
        };
        const std::string ofArtists = "{artist album_artist} : (";
        // There may be more; those of a fitting artist must be among the ones looked at.
        if (find(query, mostByWords) == mostByWords)
            find(ofArtists + query + ')', mostByArtist);
        find(ofArtists + artistQuery(typed) + ')', mostByArtist);
    }
    keepBest(found, limit);

    std::vector<PersistentID> songs;
    songs.reserve(found.size());
    for (const Found &match : found) {
        Statement &identifier = connection.statement("SELECT persistent_id FROM songs WHERE id = ?");
        if (identifier.bind(match.song).step())
            songs.push_back({static_cast<std::uint64_t>(identifier.integer(0))});
    }
    return songs;
}

} // namespace trackwise
