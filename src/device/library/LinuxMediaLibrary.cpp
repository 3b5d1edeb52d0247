// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LinuxMediaLibrary.h"

#include "device/library/store/SongLookup.h"
#include "device/library/store/TextFolding.h"
#include "platform/Background.h"

#include <QLoggingCategory>

namespace trackwise {

namespace {
Q_LOGGING_CATEGORY(log, "trackwise.library", QtFatalMsg)
} // namespace

LinuxMediaLibrary::LinuxMediaLibrary(std::shared_ptr<SongStore> store, const ConnectionPool &connections,
                                     LibraryAccess &access, QObject *parent)
    : MediaLibrary(parent)
    , m_store(std::move(store))
    , m_connections(connections)
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

/// What cannot be read has been reported, and is answered like what is not there.
template <typename Question, typename... Values>
auto LinuxMediaLibrary::ask(Question question, const Values &...values) const
{
    return m_connections
        .read([&](ReadConnection &connection) { return (SongLookup(connection).*question)(values...); })
        .valueOr({});
}

std::optional<MediaItem> LinuxMediaLibrary::song(PersistentID id) const
{
    auto found = ask(&SongLookup::song, id);
    return found ? std::optional(std::move(found->item)) : std::nullopt;
}

std::vector<MediaItem> LinuxMediaLibrary::songs(const SongQuery &query, int limit) const
{
    return ask(&SongLookup::songs, query, limit);
}

std::optional<MediaItem> LinuxMediaLibrary::songIgnoringCase(const QString &title,
                                                             const QString &artist) const
{
    return ask(&SongLookup::songIgnoringCase, title, artist);
}

std::optional<MediaItem> LinuxMediaLibrary::songWithCatalogID(const QString &identifier) const
{
    return ask(&SongLookup::songWithCatalogID, identifier);
}

QString LinuxMediaLibrary::folded(const QString &text) const
{
    return trackwise::folded(text);
}

std::optional<PersistentID> LinuxMediaLibrary::idOfPath(const QByteArray &path) const
{
    return ask(&SongLookup::idOfPath, path);
}

std::optional<PersistentID> LinuxMediaLibrary::idOfFile(FileIdentity file) const
{
    return ask(&SongLookup::idOfFile, file);
}

std::optional<PersistentID> LinuxMediaLibrary::idOfCatalogID(const QString &identifier) const
{
    return ask(&SongLookup::idOfCatalogID, identifier);
}

std::optional<PersistentID> LinuxMediaLibrary::idOfMusicBrainzID(const QString &identifier) const
{
    return ask(&SongLookup::idOfRecording, identifier.toLower());
}

std::vector<SongCandidate> LinuxMediaLibrary::songsTitled(const QString &foldedTitle, int limit) const
{
    return ask(&SongLookup::songsTitled, foldedTitle, limit);
}

std::vector<SongCandidate> LinuxMediaLibrary::songsWithTitlePrefix(const QString &foldedPrefix,
                                                                   int limit) const
{
    return ask(&SongLookup::songsWithTitlePrefix, foldedPrefix, limit);
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
                qCWarning(log) << "counting a play of" << id.toString() << result.failure().detail;
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
