// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/ConnectionPool.h"
#include "device/library/store/SongRecord.h"
#include "platform/MediaLibrary.h"
#include "platform/SongMatching.h"

#include <functional>

namespace trackwise {

/// Exact questions to the library, each answered from an index: songs whose file is there first, then those
/// of absent disks, each in the order in which they were added. Songs whose file is gone answer to their
/// identifier only. Short-lived: made for one use of a connection.
class SongLookup
{
public:
    explicit SongLookup(ReadConnection &connection)
        : m_connection(connection)
    {}

    [[nodiscard]] std::optional<LibrarySong> song(PersistentID id) const;
    [[nodiscard]] std::optional<LibrarySong> songAt(const QByteArray &path) const;
    [[nodiscard]] std::vector<MediaItem> songs(const SongQuery &query, int limit) const;
    [[nodiscard]] std::optional<MediaItem> songIgnoringCase(const QString &title,
                                                            const QString &artist) const;
    [[nodiscard]] std::optional<MediaItem> songWithCatalogID(const QString &identifier) const;

    [[nodiscard]] std::optional<PersistentID> idOfPath(const QByteArray &path) const;
    [[nodiscard]] std::optional<PersistentID> idOfFile(FileIdentity file) const;
    [[nodiscard]] std::optional<PersistentID> idOfCatalogID(const QString &identifier) const;
    [[nodiscard]] std::optional<PersistentID> idOfRecording(const QString &lowerCaseMBID) const;
    [[nodiscard]] std::vector<SongCandidate> songsTitled(const QString &foldedTitle, int limit) const;
    [[nodiscard]] std::vector<SongCandidate> songsWithTitlePrefix(const QString &foldedPrefix,
                                                                  int limit) const;

    /// All songs, those that are gone too; until @p visit answers false.
    void visitSongs(const std::function<bool(const LibrarySong &)> &visit) const;

private:
    [[nodiscard]] static std::optional<PersistentID> firstID(sqlite::Statement &statement);
    /// Songs whose title's words lie between @p folded and @p folded with @p end behind it.
    template <typename Fits>
    [[nodiscard]] std::vector<SongCandidate> candidates(const QString &folded, char end, int limit,
                                                        Fits fits) const;

    ReadConnection &m_connection;
};

} // namespace trackwise
