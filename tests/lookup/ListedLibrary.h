// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/MediaLibrary.h"

#include <QThreadPool>

#include <algorithm>

namespace trackwise {

/// Songs in a list, searched one by one.
class ListedLibrary : public MediaLibrary
{
public:
    std::vector<MediaItem> list;
    LibraryAuthorizationStatus status = LibraryAuthorizationStatus::Authorized;

    void add(unsigned id, const char *title, const char *artist, const char *album,
             const char *catalogID = "")
    {
        MediaItem song;
        song.title = QString::fromUtf8(title);
        song.artist = QString::fromUtf8(artist);
        song.albumTitle = QString::fromUtf8(album);
        song.persistentID = PersistentID{id};
        song.playbackStoreID = QString::fromUtf8(catalogID);
        list.push_back(song);
    }

    [[nodiscard]] LibraryAuthorizationStatus authorizationStatus() const override { return status; }
    /// Answers on another thread, as the device may.
    void requestAuthorization(AuthorizationHandler handler) override
    {
        QThreadPool::globalInstance()->start(
            [handler = std::move(handler), answer = status] { handler(answer); });
    }
    [[nodiscard]] std::optional<MediaItem> song(PersistentID id) const override
    {
        const auto found = std::find_if(list.begin(), list.end(),
                                        [id](const auto &song) { return song.persistentID == id; });
        return found == list.end() ? std::nullopt : std::optional(*found);
    }
    [[nodiscard]] std::vector<MediaItem> songs(const SongQuery &query, int limit) const override
    {
        std::vector<MediaItem> found;
        for (const MediaItem &song : list) {
            if ((!query.title || song.title == query.title) &&
                (!query.artist || song.artist == query.artist) &&
                (!query.albumTitle || song.albumTitle == query.albumTitle) && std::ssize(found) < limit)
                found.push_back(song);
        }
        return found;
    }
    [[nodiscard]] std::optional<MediaItem> songIgnoringCase(const QString &title,
                                                            const QString &artist) const override
    {
        for (const MediaItem &song : list) {
            if (song.title->compare(title, Qt::CaseInsensitive) == 0 &&
                song.artist->compare(artist, Qt::CaseInsensitive) == 0)
                return song;
        }
        return {};
    }
    [[nodiscard]] std::optional<MediaItem> songWithCatalogID(const QString &identifier) const override
    {
        for (const MediaItem &song : list) {
            if (song.playbackStoreID == identifier)
                return song;
        }
        return {};
    }
    void recordPlay(PersistentID, Instant) override {}
    void recordSkip(PersistentID) override {}
};

} // namespace trackwise
