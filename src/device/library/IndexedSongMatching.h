// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/ReaderPool.h"
#include "platform/SongMatching.h"

namespace trackwise {

/// Finds the library's song for a track that another program plays.
class IndexedSongMatching final : public SongMatching
{
public:
    /// @p readers must outlive this.
    explicit IndexedSongMatching(const ReaderPool &readers)
        : m_readers(readers)
    {}

    [[nodiscard]] QString folded(const QString &text) const override;
    [[nodiscard]] std::optional<PersistentID> idOfPath(const QByteArray &canonicalPath) const override;
    [[nodiscard]] std::optional<PersistentID> idOfFile(FileIdentity file) const override;
    [[nodiscard]] std::optional<PersistentID> idOfCatalogID(const QString &identifier) const override;
    [[nodiscard]] std::optional<PersistentID> idOfMusicBrainzID(const QString &identifier) const override;
    [[nodiscard]] std::vector<SongCandidate> songsTitled(const QString &foldedTitle,
                                                         int limit) const override;
    [[nodiscard]] std::vector<SongCandidate> songsWithTitlePrefix(const QString &foldedPrefix,
                                                                  int limit) const override;
    [[nodiscard]] std::optional<MediaItem> song(PersistentID id) const override;

private:
    const ReaderPool &m_readers;
};

} // namespace trackwise
