// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/PersistentID.h"

#include <QString>

#include <cstdint>
#include <span>
#include <vector>

namespace trackwise {

/// Identity of an album or an artist as lists show them; kept while the list is, not longer.
enum class GroupKey : std::int64_t {};

/// Which songs a list holds, and thereby in which order.
struct SongScope
{
    enum class Kind {
        All,           ///< by title
        RecentlyAdded, ///< newest first
        OfArtist,      ///< by album, disc and track
        OfAlbum,       ///< by disc and track
        Matching,      ///< what the user typed, best first
    };
    Kind kind = Kind::All;
    GroupKey group{};   ///< for OfArtist and OfAlbum
    QString searchText; ///< for Matching; words in any order, blind to case and diacritics

    friend bool operator==(const SongScope &, const SongScope &) = default;
};

/// One letter of the index beside a long list, and the first row under it.
struct SectionStart
{
    QString label; ///< "A", "あ", "#"
    qsizetype firstRow = 0;

    friend bool operator==(const SectionStart &, const SectionStart &) = default;
};

/// A list's order without its rows: eight bytes a song.
struct SongIndex
{
    std::vector<PersistentID> songs;
    std::vector<SectionStart> sections; ///< empty where letters mean nothing
};

/// What one row of a list of songs shows.
struct SongRow
{
    PersistentID id;
    QString title;
    QString artist;
    QString album;
    QString artworkKey; ///< hexadecimal; empty: no artwork
    bool isExplicit = false;
    bool isAvailable = true;
};

struct GroupIndex
{
    std::vector<GroupKey> groups;
    std::vector<SectionStart> sections;
};

/// What one row of a list of artists or albums shows.
struct GroupRow
{
    GroupKey key{};
    QString name;
    QString artist; ///< of an album
    int songCount = 0;
    PersistentID artworkSong; ///< a song that has the group's artwork; zero when none has
    QString artworkKey;
};

/// The library as lists show it: an order first, then only the rows that are on screen. Lists hold songs
/// whose file is there; those of an absent disk are shown as unavailable, removed ones not at all.
/// Every call may be made on any thread and answers from the database.
class LibraryBrowser
{
public:
    virtual ~LibraryBrowser() = default;

    [[nodiscard]] virtual qsizetype songCount() const = 0;
    [[nodiscard]] virtual SongIndex songs(const SongScope &scope) const = 0;
    /// The rows of these songs, in this order. A song that has vanished gives a row without texts.
    [[nodiscard]] virtual std::vector<SongRow> songRows(std::span<const PersistentID> songs) const = 0;

    [[nodiscard]] virtual GroupIndex artists() const = 0;
    [[nodiscard]] virtual GroupIndex albums() const = 0;
    [[nodiscard]] virtual std::vector<GroupRow> artistRows(std::span<const GroupKey> artists) const = 0;
    [[nodiscard]] virtual std::vector<GroupRow> albumRows(std::span<const GroupKey> albums) const = 0;
};

} // namespace trackwise
