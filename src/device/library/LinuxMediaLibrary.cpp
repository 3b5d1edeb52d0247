// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LinuxMediaLibrary.h"

#include "device/library/store/SongLookup.h"
#include "platform/Background.h"

namespace trackwise {

LinuxMediaLibrary::LinuxMediaLibrary(std::shared_ptr<SongStore> store, const ReaderPool &readers,
                                     LibraryAccess &access, QObject *parent)
    : MediaLibrary(parent)
    , m_store(std::move(store))
    , m_readers(readers)
    , m_access(access)
{
    m_writing.setMaxThreadCount(1);
    connect(&m_access, &LibraryAccess::statusDidChange, this, &MediaLibrary::authorizationStatusDidChange);
}

LinuxMediaLibrary::~LinuxMediaLibrary()
{
    m_writing.waitForDone();
}

LibraryAuthorizationStatus LinuxMediaLibrary::authorizationStatus() const
{
    return m_access.status();
}

void LinuxMediaLibrary::requestAuthorization(AuthorizationHandler handler)
{
    m_access.request(std::move(handler));
}

std::optional<MediaItem> LinuxMediaLibrary::song(PersistentID id) const
{
    return m_readers
        .read([id](Reader &reader) {
            auto found = SongLookup(reader).song(id);
            return found ? std::optional(std::move(found->item)) : std::nullopt;
        })
        .valueOr({});
}

std::vector<MediaItem> LinuxMediaLibrary::songs(const SongQuery &query, int limit) const
{
    return m_readers.read([&](Reader &reader) { return SongLookup(reader).songs(query, limit); }).valueOr({});
}

std::optional<MediaItem> LinuxMediaLibrary::songIgnoringCase(const QString &title,
                                                             const QString &artist) const
{
    return m_readers.read([&](Reader &reader) { return SongLookup(reader).songIgnoringCase(title, artist); })
        .valueOr({});
}

std::optional<MediaItem> LinuxMediaLibrary::songWithCatalogID(const QString &identifier) const
{
    return m_readers.read([&](Reader &reader) { return SongLookup(reader).songWithCatalogID(identifier); })
        .valueOr({});
}

template <typename Change>
void LinuxMediaLibrary::changeInBackground(PersistentID id, Change change)
{
    runInBackground(
        m_writing, this, [store = m_store, change] { return change(*store); },
        [this, id](const Result<Done> &result) {
            if (result)
                Q_EMIT songDidChange(id);
            else
                qCWarning(libraryLog) << "counting a play of" << id.toString() << result.failure().detail;
        });
}

void LinuxMediaLibrary::recordPlay(PersistentID id, Instant when)
{
    changeInBackground(id, [id, when](SongStore &store) { return store.recordPlay(id, when); });
}

void LinuxMediaLibrary::recordSkip(PersistentID id)
{
    changeInBackground(id, [id](SongStore &store) { return store.recordSkip(id); });
}

} // namespace trackwise
