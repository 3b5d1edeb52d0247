// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SyntheticLibrary.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace trackwise {

namespace {

constexpr std::uint64_t letters = 26;
constexpr size_t maxMatches = 1000;

std::uint64_t groupOf(PersistentID song, std::uint64_t idsInOne)
{
    return (song.value - 1) / idsInOne + 1;
}

QString numbered(const QString &name, std::uint64_t number)
{
    return u"%1 %2"_s.arg(name).arg(number, 7, 10, QLatin1Char('0'));
}

} // namespace

SyntheticLibrary::SyntheticLibrary(int songCount)
    : m_lastID(static_cast<std::uint64_t>(songCount) * step)
{
    m_songs.reserve(static_cast<size_t>(songCount));
    for (std::uint64_t id = step; id <= m_lastID; id += step)
        m_songs.push_back({id});
}

void SyntheticLibrary::insert(PersistentID song)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_songs.insert(std::ranges::lower_bound(m_songs, song), song);
    }
    Q_EMIT libraryDidChange();
}

void SyntheticLibrary::remove(PersistentID song)
{
    {
        const std::scoped_lock lock(m_mutex);
        std::erase(m_songs, song);
    }
    Q_EMIT libraryDidChange();
}

QString SyntheticLibrary::titleOf(PersistentID song)
{
    return numbered(u"Song"_s, song.value);
}

std::vector<PersistentID> SyntheticLibrary::allSongs() const
{
    const std::scoped_lock lock(m_mutex);
    return m_songs;
}

SongIndex SyntheticLibrary::songs(const SongScope &scope) const
{
    if (beforeSongs)
        beforeSongs(scope);
    SongIndex index{.songs = allSongs(), .sections = {}};
    const auto keepIf = [&index](auto isWanted) { std::erase_if(index.songs, std::not_fn(isWanted)); };
    switch (scope.kind) {
    case SongScope::Kind::All:
        for (size_t row = 0; row < index.songs.size(); ++row) {
            const auto letter =
                static_cast<char16_t>(u'A' + (index.songs[row].value - 1) * letters / m_lastID);
            if (index.sections.empty() || index.sections.back().label != QString(QChar(letter)))
                index.sections.push_back({QString(QChar(letter)), static_cast<qsizetype>(row)});
        }
        break;
    case SongScope::Kind::RecentlyAdded:
        std::ranges::reverse(index.songs);
        break;
    case SongScope::Kind::OfArtist:
        keepIf([&](PersistentID id) { return GroupKey(groupOf(id, idsInArtist)) == scope.group; });
        break;
    case SongScope::Kind::OfAlbum:
        keepIf([&](PersistentID id) { return GroupKey(groupOf(id, idsInAlbum)) == scope.group; });
        break;
    case SongScope::Kind::Matching:
        keepIf([&](PersistentID id) { return titleOf(id).contains(scope.searchText, Qt::CaseInsensitive); });
        index.songs.resize(std::min(index.songs.size(), maxMatches));
        break;
    }
    return index;
}

std::vector<SongRow> SyntheticLibrary::songRows(std::span<const PersistentID> ids) const
{
    if (beforeRows)
        beforeRows(ids);
    std::vector<SongRow> rows;
    for (const PersistentID id : ids)
        rows.push_back({.id = id,
                        .title = titleOf(id),
                        .artist = numbered(u"Artist"_s, groupOf(id, idsInArtist)),
                        .album = numbered(u"Album"_s, groupOf(id, idsInAlbum)),
                        .artworkKey = {},
                        .isExplicit = id.value % 70 == 0,
                        .isAvailable = id.value % 130 != 0});
    return rows;
}

GroupIndex SyntheticLibrary::groups(std::uint64_t idsInOne) const
{
    GroupIndex index;
    for (const PersistentID id : allSongs()) {
        const GroupKey key{static_cast<std::int64_t>(groupOf(id, idsInOne))};
        if (index.groups.empty() || index.groups.back() != key)
            index.groups.push_back(key);
    }
    return index;
}

std::vector<GroupRow> SyntheticLibrary::rowsOfGroups(std::span<const GroupKey> groups, std::uint64_t idsInOne)
{
    std::vector<GroupRow> rows;
    for (const GroupKey key : groups) {
        const auto number = static_cast<std::uint64_t>(key);
        const bool isAlbum = idsInOne == idsInAlbum;
        const std::uint64_t artist = (number - 1) / (idsInArtist / idsInAlbum) + 1;
        rows.push_back({.key = key,
                        .name = numbered(isAlbum ? u"Album"_s : u"Artist"_s, number),
                        .artist = isAlbum ? numbered(u"Artist"_s, artist) : QString(),
                        .songCount = static_cast<int>(idsInOne / step)});
    }
    return rows;
}

std::optional<MediaItem> SyntheticLibrary::song(PersistentID id) const
{
    if (!std::ranges::binary_search(allSongs(), id))
        return std::nullopt;
    return MediaItem{.title = titleOf(id), .persistentID = id};
}

} // namespace trackwise
