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
        list.push_back({.title = QString::fromUtf8(title),
                        .artist = QString::fromUtf8(artist),
                        .albumTitle = QString::fromUtf8(album),
                        .persistentID = PersistentID{id},
                        .playbackStoreID = QString::fromUtf8(catalogID)});
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
        return first([id](const MediaItem &song) { return song.persistentID == id; });
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
        return first([&](const MediaItem &song) {
            return song.title->compare(title, Qt::CaseInsensitive) == 0 &&
                   song.artist->compare(artist, Qt::CaseInsensitive) == 0;
        });
    }
    [[nodiscard]] std::optional<MediaItem> songWithCatalogID(const QString &identifier) const override
    {
        return first([&](const MediaItem &song) { return song.playbackStoreID == identifier; });
    }
    void recordPlay(PersistentID, Instant) override {}
    void recordSkip(PersistentID) override {}

private:
    template <typename Wanted>
    [[nodiscard]] std::optional<MediaItem> first(const Wanted &isWanted) const
    {
        const auto found = std::ranges::find_if(list, isWanted);
        return found == list.end() ? std::nullopt : std::optional(*found);
    }
};

} // namespace trackwise
