// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detail/DetailAlerts.h"
#include "detail/LibraryAccessGate.h"
#include "lookup/CatalogReply.h"
#include "platform/MediaLibrary.h"
#include "platform/Result.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <optional>

class QThreadPool;

namespace trackwise {

class CatalogLookup;

/// Finds the library's song for dropped or pasted links, in the library itself or else by what the catalog
/// says about the link. Keeps nothing: each call starts a chain of its own, and of two chains the one that
/// ends last leaves its song on screen. Chains end in silence when this object goes. Main thread.
class LinkDrop : public QObject
{
    Q_OBJECT

public:
    struct Actions
    {
        std::function<void(const AlertMessage &)> presentAlert;
        std::function<void(const MediaItem &)> display; ///< the song that was found
    };

    /// Everything that is referred to must outlive this object and the work on @p pool.
    LinkDrop(LibraryAccessGate &gate, MediaLibrary &library, const CatalogLookup &catalog, QThreadPool &pool,
             Actions actions, QObject *parent = nullptr);

    void handleDroppedURLs(const QStringList &addresses);
    void lookUpCatalogSong(const QString &identifier);

private:
    void searchLibrary(const QString &identifier);
    void libraryWasSearched(const std::optional<MediaItem> &song, const QString &identifier);
    void catalogAnswered(const Result<CatalogSong> &answer);

    LibraryAccessGate &m_gate;
    MediaLibrary &m_library;
    const CatalogLookup &m_catalog;
    QThreadPool &m_pool;
    Actions m_actions;
};

} // namespace trackwise
