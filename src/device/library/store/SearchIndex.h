// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SongIdentity.h"
#include "device/library/store/Sqlite.h"

#include <QStringList>

#include <string>

namespace trackwise {

/// What lists show of a song, and so what is searched.
struct ShownTexts
{
    QString title;
    QString artist;
    QStringList artists; ///< the names in it, where they are known
    QString album;
    QString albumArtist;
    QString composer;
};

/// The texts of a song that are searched while typing, as indexedText() and indexedNames() make them.
struct SearchTexts
{
    std::string title;
    std::string artist;
    std::string album;
    std::string albumArtist;
    std::string composer;

    friend bool operator==(const SearchTexts &, const SearchTexts &) = default;
};
[[nodiscard]] SearchTexts searchTexts(const ShownTexts &shown);
/// What lists show of a song without a title: the name of its file without the suffix.
[[nodiscard]] QString titleOfFile(const QByteArray &name);

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
    /// Makes anew the texts of the next songs, at most @p count, that an earlier version may have written;
    /// whether more are waiting. Those not renewed yet are found by what they had.
    [[nodiscard]] bool renewNext(int count);

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
