// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SongMatching.h"

#include <QFile>

#include <sys/stat.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace trackwise {

/// A few songs in memory, found as the library finds them. Fill it before it is used from other threads.
class MemoryLibrary : public SongMatching
{
public:
    struct Entry
    {
        MediaItem item;
        QByteArray path;
        QString musicBrainzId;
    };

    /// The song's identifier is its place, from 1.
    MemoryLibrary &add(const QString &title, const QString &artist, const QString &album, double seconds,
                       const QString &path = {}, const QString &catalogID = {},
                       const QString &musicBrainzId = {})
    {
        Entry entry;
        entry.item.title = title;
        entry.item.artist = artist;
        entry.item.albumTitle = album;
        entry.item.playbackDuration = seconds;
        entry.item.playbackStoreID = catalogID;
        entry.item.persistentID.value = m_entries.size() + 1;
        entry.path = QFile::encodeName(path);
        entry.musicBrainzId = musicBrainzId;
        m_entries.push_back(std::move(entry));
        return *this;
    }

    [[nodiscard]] QString folded(const QString &text) const override
    {
        QString result;
        for (const QChar c : text.normalized(QString::NormalizationForm_KD)) {
            if (c.category() != QChar::Mark_NonSpacing)
                result += c;
        }
        return result.toCaseFolded().simplified();
    }
    [[nodiscard]] std::optional<PersistentID> idOfPath(const QByteArray &path) const override
    {
        return first([&path](const Entry &entry) { return entry.path == path; });
    }
    [[nodiscard]] std::optional<PersistentID> idOfFile(FileIdentity file) const override
    {
        return first([file](const Entry &entry) {
            struct stat status
            {};
            return ::stat(entry.path.constData(), &status) == 0 &&
                   FileIdentity{status.st_dev, status.st_ino} == file;
        });
    }
    [[nodiscard]] std::optional<PersistentID> idOfCatalogID(const QString &identifier) const override
    {
        return first([&identifier](const Entry &entry) { return entry.item.playbackStoreID == identifier; });
    }
    [[nodiscard]] std::optional<PersistentID> idOfMusicBrainzID(const QString &identifier) const override
    {
        return first([&identifier](const Entry &entry) { return entry.musicBrainzId == identifier; });
    }
    [[nodiscard]] std::vector<SongCandidate> songsTitled(const QString &title, int limit) const override
    {
        return candidates(limit, [&title](const QString &own) { return own == title; });
    }
    [[nodiscard]] std::vector<SongCandidate> songsWithTitlePrefix(const QString &prefix,
                                                                  int limit) const override
    {
        return candidates(limit, [&prefix](const QString &own) { return own.startsWith(prefix); });
    }
    [[nodiscard]] std::optional<MediaItem> song(PersistentID id) const override
    {
        return id.value >= 1 && id.value <= m_entries.size() ? std::optional(m_entries[id.value - 1].item)
                                                             : std::nullopt;
    }

private:
    template <typename Fits>
    [[nodiscard]] std::optional<PersistentID> first(Fits fits) const
    {
        const auto found = std::find_if(m_entries.begin(), m_entries.end(), fits);
        return found == m_entries.end() ? std::nullopt : std::optional(found->item.persistentID);
    }
    template <typename Fits>
    [[nodiscard]] std::vector<SongCandidate> candidates(int limit, Fits fits) const
    {
        std::vector<SongCandidate> result;
        for (const Entry &entry : m_entries) {
            const QString title = folded(entry.item.title.value_or(QString()));
            if (int(result.size()) < limit && fits(title))
                result.push_back({entry.item.persistentID,
                                  title,
                                  folded(entry.item.artist.value_or(QString())),
                                  {},
                                  folded(entry.item.albumTitle.value_or(QString())),
                                  std::chrono::milliseconds(qint64(entry.item.playbackDuration * 1000))});
        }
        return result;
    }

    std::vector<Entry> m_entries;
};

} // namespace trackwise
