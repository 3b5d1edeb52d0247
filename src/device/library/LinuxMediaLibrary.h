// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/LibraryAccess.h"
#include "device/library/store/ConnectionPool.h"
#include "device/library/store/SongStore.h"
#include "platform/MediaLibrary.h"
#include "platform/SongMatching.h"

#include <QThreadPool>

#include <memory>

namespace trackwise {

/// The song library over the database of scanned music folders, and the look-ups by which a track that
/// another program plays is found in it.
class LinuxMediaLibrary final : public MediaLibrary, public SongMatching
{
    Q_OBJECT

public:
    /// @p connections and @p access must outlive this object.
    LinuxMediaLibrary(std::shared_ptr<SongStore> store, const ConnectionPool &connections,
                      LibraryAccess &access, QObject *parent = nullptr);
    /// Waits for the counts that are still to be written.
    ~LinuxMediaLibrary() override;

    [[nodiscard]] LibraryAuthorizationStatus authorizationStatus() const override;
    void requestAuthorization(AuthorizationHandler handler) override;

    [[nodiscard]] std::optional<MediaItem> song(PersistentID id) const override;
    [[nodiscard]] std::vector<MediaItem> songs(const SongQuery &query, int limit) const override;
    [[nodiscard]] std::optional<MediaItem> songIgnoringCase(const QString &title,
                                                            const QString &artist) const override;
    [[nodiscard]] std::optional<MediaItem> songWithCatalogID(const QString &identifier) const override;

    [[nodiscard]] QString folded(const QString &text) const override;
    [[nodiscard]] std::optional<PersistentID> idOfPath(const QByteArray &path) const override;
    [[nodiscard]] std::optional<PersistentID> idOfFile(FileIdentity file) const override;
    [[nodiscard]] std::optional<PersistentID> idOfCatalogID(const QString &identifier) const override;
    [[nodiscard]] std::optional<PersistentID> idOfMusicBrainzID(const QString &identifier) const override;
    [[nodiscard]] std::vector<SongCandidate> songsTitled(const QString &foldedTitle,
                                                         int limit) const override;
    [[nodiscard]] std::vector<SongCandidate> songsWithTitlePrefix(const QString &foldedPrefix,
                                                                  int limit) const override;

    void recordPlay(PersistentID id, Instant when) override;
    void recordSkip(PersistentID id) override;

private:
    template <typename Question, typename... Values>
    [[nodiscard]] auto ask(Question question, const Values &...values) const;
    template <typename Change>
    void changeInBackground(PersistentID id, Change change);

    std::shared_ptr<SongStore> m_store;
    const ConnectionPool &m_connections;
    LibraryAccess &m_access;
    QThreadPool m_writing; ///< one thread: the changes happen in their order
};

} // namespace trackwise
