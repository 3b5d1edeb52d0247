// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SearchIndex.h"

#include "device/library/store/SearchWords.h"
#include "device/library/store/TextFolding.h"

#include <algorithm>
#include <optional>

namespace trackwise {

SearchTexts searchTexts(const ShownTexts &shown)
{
    QStringList artists;
    for (const QString &artist : shown.artists)
        artists << folded(artist);
    return {indexedText(folded(shown.title)), indexedNames(folded(shown.artist), artists),
            indexedText(folded(shown.album)), indexedNames(folded(shown.albumArtist)),
            indexedText(folded(shown.composer))};
}

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

QString titleOfFile(const QByteArray &name)
{
    const qsizetype dot = name.lastIndexOf('.');
    return QString::fromUtf8(dot > 0 ? name.left(dot) : name);
}

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

bool SearchIndex::renewNext(int count)
{
    auto last = m_connection.integer("SELECT value FROM settings WHERE name = 'texts_to_renew'");
    if (last == 0)
        return false;
    std::vector<std::pair<SongRowID, SearchTexts>> renewed;
    sqlite::Statement songs = m_connection.prepare(
        "SELECT song, songs.title, songs.artist, album_title, songs.album_artist, songs.composer, name,"
        " search_texts.artist FROM search_texts JOIN songs ON songs.id = song JOIN files USING (song)"
        " WHERE song <= ? ORDER BY song DESC LIMIT ?");
    songs.bind(last).bind(std::int64_t{count});
    last = 0;
    for (int rows = 1; songs.step(); ++rows) {
        const std::int64_t song = songs.integer(0);
        if (rows == count)
            last = song - 1;
        if (hasWholeName(songs.utf8(7))) // written since, with the names of each artist
            continue;
        const QString title = songs.isNull(1) ? titleOfFile(songs.bytes(6)) : songs.text(1);
        renewed.emplace_back(
            SongRowID{song},
            searchTexts({title, songs.text(2), {}, songs.text(3), songs.text(4), songs.text(5)}));
    }
    for (const auto &[song, texts] : renewed)
        replace(song, texts);
    m_connection.prepare("UPDATE settings SET value = ? WHERE name = 'texts_to_renew'").bind(last).run();
    return last > 0;
}

} // namespace trackwise
