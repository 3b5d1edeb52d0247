// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/ListContent.h"

#include "artwork/ArtworkAddress.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace trackwise {

namespace {

QString artworkOf(PersistentID song, const QString &artworkKey)
{
    if (artworkKey.isEmpty() || !song.isInLibrary())
        return {};
    return artworkAddress({.song = song, .key = QByteArray::fromHex(artworkKey.toLatin1())});
}

QString artistText(const QString &artist)
{
    return artist.isEmpty() ? QCoreApplication::translate("SongPicker", "Unknown Artist") : artist;
}

ListRow rowOf(const SongRow &song)
{
    return {.title = song.title.isEmpty() ? QCoreApplication::translate("SongPicker", "Unknown Title")
                                          : song.title,
            .subtitle = artistText(song.artist),
            .artwork = artworkOf(song.id, song.artworkKey),
            .isExplicit = song.isExplicit,
            .isAvailable = song.isAvailable};
}

ListRow rowOf(const GroupRow &group, ListContent::Kind kind)
{
    ListRow row{.title = group.name, .artwork = artworkOf(group.artworkSong, group.artworkKey)};
    if (kind == ListContent::Kind::Artists) {
        row.title = artistText(group.name);
        row.subtitle = songCountText(group.songCount);
    } else {
        if (group.name.isEmpty())
            row.title = QCoreApplication::translate("SongPicker", "Unknown Album");
        row.subtitle = artistText(group.artist);
    }
    return row;
}

ListOrder orderOf(const GroupIndex &index)
{
    ListOrder order{.keys = {}, .sections = index.sections};
    order.keys.reserve(index.groups.size());
    std::ranges::transform(index.groups, std::back_inserter(order.keys),
                           [](GroupKey key) { return static_cast<std::uint64_t>(key); });
    return order;
}

} // namespace

QString songCountText(int count)
{
    // Two texts, so that English reads well without a catalogue of its own.
    return count == 1 ? QCoreApplication::translate("SongPicker", "%Ln song", nullptr, count)
                      : QCoreApplication::translate("SongPicker", "%Ln songs", nullptr, count);
}

ListOrder orderOf(const LibraryBrowser &browser, const ListContent &content)
{
    switch (content.kind) {
    case ListContent::Kind::Artists:
        return orderOf(browser.artists());
    case ListContent::Kind::Albums:
        return orderOf(browser.albums());
    case ListContent::Kind::Songs:
        break;
    }
    SongIndex index = browser.songs(content.scope);
    ListOrder order{.keys = {}, .sections = std::move(index.sections)};
    order.keys.reserve(index.songs.size());
    std::ranges::transform(index.songs, std::back_inserter(order.keys), &PersistentID::value);
    return order;
}

std::vector<ListRow> rowsOf(const LibraryBrowser &browser, ListContent::Kind kind,
                            std::span<const std::uint64_t> keys)
{
    std::vector<ListRow> rows;
    rows.reserve(keys.size());
    if (kind == ListContent::Kind::Songs) {
        std::vector<PersistentID> songs;
        std::ranges::transform(keys, std::back_inserter(songs),
                               [](std::uint64_t key) { return PersistentID{key}; });
        for (const SongRow &song : browser.songRows(songs))
            rows.push_back(rowOf(song));
    } else {
        std::vector<GroupKey> groups;
        std::ranges::transform(keys, std::back_inserter(groups),
                               [](std::uint64_t key) { return GroupKey(key); });
        const auto found =
            kind == ListContent::Kind::Artists ? browser.artistRows(groups) : browser.albumRows(groups);
        for (const GroupRow &group : found)
            rows.push_back(rowOf(group, kind));
    }
    rows.resize(keys.size());
    return rows;
}

} // namespace trackwise
