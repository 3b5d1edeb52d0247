// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace trackwise {

/// What the user, or the system, has decided about the app's use of the music library.
enum class LibraryAuthorizationStatus { NotDetermined = 0, Denied = 1, Restricted = 2, Authorized = 3 };

/// Values that a song must have exactly, letter for letter; an absent one is not looked at.
struct SongQuery
{
    std::optional<QString> title;
    std::optional<QString> artist;
    std::optional<QString> albumTitle;
};

/// The device's song library: permission, identities and exact searches. The queries may be called on any
/// thread; each answers from an index and gives songs whose file is there first, then those of absent disks,
/// each in the library's own order (by persistent row, which is the order in which songs were added). A song
/// whose file is gone is found by its identity only.
class MediaLibrary : public QObject
{
    Q_OBJECT

public:
    using AuthorizationHandler = std::function<void(LibraryAuthorizationStatus)>;

    using QObject::QObject;

    [[nodiscard]] virtual LibraryAuthorizationStatus authorizationStatus() const = 0;
    /// Asks the user when nothing has been decided yet. @p handler is called once, on any thread.
    virtual void requestAuthorization(AuthorizationHandler handler) = 0;

    [[nodiscard]] virtual std::optional<MediaItem> song(PersistentID id) const = 0;
    /// The songs that have all of the query's values, at most @p limit.
    [[nodiscard]] virtual std::vector<MediaItem> songs(const SongQuery &query, int limit) const = 0;
    /// The first song whose title and artist both equal the given ones but for letter case.
    [[nodiscard]] virtual std::optional<MediaItem> songIgnoringCase(const QString &title,
                                                                    const QString &artist) const = 0;
    /// The first song with exactly this catalog identifier.
    [[nodiscard]] virtual std::optional<MediaItem> songWithCatalogID(const QString &identifier) const = 0;

    /// The song was played to its end, or skipped soon after its start: counts it. Main thread.
    virtual void recordPlay(PersistentID id, Instant when) = 0;
    virtual void recordSkip(PersistentID id) = 0;

Q_SIGNALS:
    /// Values of one song are different now, such as its play count. Sent on the main thread.
    void songDidChange(trackwise::PersistentID id);
    /// Songs came, went or changed. Sent on the main thread, at most a few times a second during a scan.
    void libraryDidChange();
    void authorizationStatusDidChange();
};

} // namespace trackwise
