// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/library/store/SongIdentity.h"
#include "platform/linux/library/store/Sqlite.h"

#include <array>
#include <string>

namespace trackwise {

/// The texts of a song that are searched while typing, as searchText() makes them.
struct SearchTexts
{
    std::string title;
    std::string artist;
    std::string album;
    std::string albumArtist;
    std::string composer;

    friend bool operator==(const SearchTexts &, const SearchTexts &) = default;
};

/// Writes what search as you type reads. The texts and the index of titles are written with each song; the
/// full-text index, which costs the most, follows in large steps after a scan. Used inside transactions.
class SearchIndex
{
public:
    explicit SearchIndex(const sqlite::Connection &connection);

    void add(SongRowID song, const SearchTexts &texts);
    /// Replaces the song's texts, or adds them when it has none.
    void replace(SongRowID song, const SearchTexts &texts);
    void remove(SongRowID song);

    /// Takes the next songs into the full-text index, at most @p count; whether more are waiting.
    [[nodiscard]] bool indexNext(int count);

private:
    [[nodiscard]] bool isIndexed(SongRowID song);
    void write(sqlite::Statement &statement, SongRowID song, const SearchTexts &texts);

    const sqlite::Connection &m_connection;
    sqlite::Statement m_find;
    sqlite::Statement m_add;
    sqlite::Statement m_remove;
    sqlite::Statement m_addWords;
    sqlite::Statement m_removeWords;
};

} // namespace trackwise
