// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/LibrarySearch.h"

#include "platform/MediaLibrary.h"

namespace trackwise {

namespace {

std::optional<MediaItem> firstSong(const MediaLibrary &library, const SongQuery &query)
{
    std::vector<MediaItem> songs = library.songs(query, 1);
    return songs.empty() ? std::nullopt : std::optional(std::move(songs.front()));
}

} // namespace

std::optional<MediaItem> findLibrarySong(const MediaLibrary &library, const QString &title,
                                         const QString &artist, const std::optional<QString> &album)
{
    if (album) {
        if (auto song = firstSong(library, {.title = title, .artist = artist, .albumTitle = album}))
            return song;
        if (auto song = firstSong(library, {.title = title, .artist = {}, .albumTitle = album}))
            return song;
    }
    if (auto song = firstSong(library, {.title = title, .artist = artist, .albumTitle = {}}))
        return song;
    return library.songIgnoringCase(title, artist);
}

std::optional<MediaItem> findLibrarySongByCatalogID(const MediaLibrary &library, const QString &identifier)
{
    return library.songWithCatalogID(identifier);
}

} // namespace trackwise
