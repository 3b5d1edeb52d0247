// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/IndexedSongMatching.h"

#include "device/library/store/SongLookup.h"
#include "device/library/store/TextFolding.h"

namespace trackwise {

namespace {
using FoundID = std::optional<PersistentID>;
using Candidates = std::vector<SongCandidate>;
} // namespace

QString IndexedSongMatching::folded(const QString &text) const
{
    return trackwise::folded(text);
}

FoundID IndexedSongMatching::idOfPath(const QByteArray &canonicalPath) const
{
    return m_readers
        .read([&](Reader &reader) { return SongLookup(reader).idOfPath(FileName::ofPath(canonicalPath)); })
        .valueOr({});
}

FoundID IndexedSongMatching::idOfFile(FileIdentity file) const
{
    return m_readers.read([file](Reader &reader) { return SongLookup(reader).idOfFile(file); }).valueOr({});
}

FoundID IndexedSongMatching::idOfCatalogID(const QString &identifier) const
{
    return m_readers.read([&](Reader &reader) { return SongLookup(reader).idOfCatalogID(identifier); })
        .valueOr({});
}

FoundID IndexedSongMatching::idOfMusicBrainzID(const QString &identifier) const
{
    return m_readers
        .read([&](Reader &reader) { return SongLookup(reader).idOfRecording(identifier.toLower()); })
        .valueOr({});
}

Candidates IndexedSongMatching::songsTitled(const QString &foldedTitle, int limit) const
{
    return m_readers.read([&](Reader &reader) { return SongLookup(reader).songsTitled(foldedTitle, limit); })
        .valueOr({});
}

Candidates IndexedSongMatching::songsWithTitlePrefix(const QString &foldedPrefix, int limit) const
{
    return m_readers
        .read([&](Reader &reader) { return SongLookup(reader).songsWithTitlePrefix(foldedPrefix, limit); })
        .valueOr({});
}

std::optional<MediaItem> IndexedSongMatching::song(PersistentID id) const
{
    return m_readers
        .read([id](Reader &reader) {
            auto found = SongLookup(reader).song(id);
            return found ? std::optional(std::move(found->item)) : std::nullopt;
        })
        .valueOr({});
}

} // namespace trackwise
