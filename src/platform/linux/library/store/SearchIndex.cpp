// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/store/SearchIndex.h"

#include <algorithm>
#include <optional>

namespace trackwise {

SearchIndex::SearchIndex(const sqlite::Connection &connection)
    : m_connection(connection)
    , m_find(connection.prepare(
          "SELECT title, artist, album, album_artist, composer FROM search_texts WHERE song = ?"))
    , m_add(connection.prepare("INSERT INTO search_texts VALUES (?, ?, ?, ?, ?, ?)"))
    , m_remove(connection.prepare("DELETE FROM search_texts WHERE song = ?"))
    , m_addWords(
          connection.prepare("INSERT INTO search_index (rowid, title, artist, album, album_artist, composer)"
                             " VALUES (?, ?, ?, ?, ?, ?)"))
    , m_removeWords(connection.prepare(
          "INSERT INTO search_index (rowid, title, artist, album, album_artist, composer, search_index)"
          " VALUES (?, ?, ?, ?, ?, ?, 'delete')"))
{}

// Read from the database each time: several processes may write, and a rolled back step must not linger here.
bool SearchIndex::isIndexed(SongRowID song)
{
    return static_cast<std::int64_t>(song) <=
           m_connection.integer("SELECT value FROM settings WHERE name = 'indexed_up_to'");
}

void SearchIndex::write(sqlite::Statement &statement, SongRowID song, const SearchTexts &texts)
{
    statement.bind(static_cast<std::int64_t>(song))
        .bindText(texts.title)
        .bindText(texts.artist)
        .bindText(texts.album)
        .bindText(texts.albumArtist)
        .bindText(texts.composer)
        .run();
}

void SearchIndex::add(SongRowID song, const SearchTexts &texts)
{
    write(m_add, song, texts);
}

void SearchIndex::replace(SongRowID song, const SearchTexts &texts)
{
    m_find.bind(static_cast<std::int64_t>(song));
    std::optional<SearchTexts> old;
    if (m_find.step()) {
        old =
            SearchTexts{std::string(m_find.utf8(0)), std::string(m_find.utf8(1)), std::string(m_find.utf8(2)),
                        std::string(m_find.utf8(3)), std::string(m_find.utf8(4))};
    }
    m_find.reset();
    if (old == texts)
        return;
    if (old)
        remove(song);
    write(m_add, song, texts);
    if (isIndexed(song))
        write(m_addWords, song, texts);
}

void SearchIndex::remove(SongRowID song)
{
    m_find.bind(static_cast<std::int64_t>(song));
    if (m_find.step() && isIndexed(song)) {
        // The index must be told exactly the texts that it was given.
        m_removeWords.bind(static_cast<std::int64_t>(song));
        for (int column = 0; column < 5; ++column)
            m_removeWords.bindText(m_find.utf8(column));
        m_removeWords.run();
    }
    m_find.reset();
    m_remove.bind(static_cast<std::int64_t>(song)).run();
}

bool SearchIndex::indexNext(int count)
{
    const auto indexed = m_connection.integer("SELECT value FROM settings WHERE name = 'indexed_up_to'");
    const auto last = m_connection.integer("SELECT max(id) FROM songs");
    if (indexed >= last)
        return false;
    const auto upTo = std::min(indexed + count, last);
    m_connection
        .prepare("INSERT INTO search_index (rowid, title, artist, album, album_artist, composer)"
                 " SELECT * FROM search_texts WHERE song > ? AND song <= ? ORDER BY song")
        .bind(indexed)
        .bind(upTo)
        .run();
    m_connection.prepare("UPDATE settings SET value = ? WHERE name = 'indexed_up_to'").bind(upTo).run();
    return upTo < last;
}

} // namespace trackwise
