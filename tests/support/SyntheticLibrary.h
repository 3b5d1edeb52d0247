// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lookup/ListedLibrary.h"
#include "platform/LibraryBrowser.h"
#include "support/ScriptedScan.h"

#include <functional>
#include <mutex>

namespace trackwise {

/// A library of made-up songs in memory, as large as wished. A song's texts follow from its identifier:
/// titles rise with it from A to Z, ten songs make an album and a hundred an artist.
class SyntheticLibrary : public ListedLibrary, public LibraryBrowser
{
    Q_OBJECT

public:
    /// Identifiers are 10, 20, 30 and so on; those between are free for insert().
    explicit SyntheticLibrary(int songCount);

    /// Both tell the library's observers.
    void insert(PersistentID song);
    void remove(PersistentID song);
    [[nodiscard]] static QString titleOf(PersistentID song);
    /// Called on the worker before each answer; may wait. Set it before the first question.
    std::function<void(const SongScope &)> beforeSongs;
    std::function<void(std::span<const PersistentID>)> beforeRows;

    [[nodiscard]] qsizetype songCount() const override { return std::ssize(allSongs()); }
    [[nodiscard]] SongIndex songs(const SongScope &scope) const override;
    [[nodiscard]] std::vector<SongRow> songRows(std::span<const PersistentID> ids) const override;
    [[nodiscard]] GroupIndex artists() const override { return groups(idsInArtist); }
    [[nodiscard]] GroupIndex albums() const override { return groups(idsInAlbum); }
    [[nodiscard]] std::vector<GroupRow> artistRows(std::span<const GroupKey> artists) const override
    {
        return rowsOfGroups(artists, idsInArtist);
    }
    [[nodiscard]] std::vector<GroupRow> albumRows(std::span<const GroupKey> albums) const override
    {
        return rowsOfGroups(albums, idsInAlbum);
    }

    using ListedLibrary::songs;
    [[nodiscard]] std::optional<MediaItem> song(PersistentID id) const override;

private:
    static constexpr std::uint64_t step = 10;
    static constexpr std::uint64_t idsInAlbum = 10 * step;
    static constexpr std::uint64_t idsInArtist = 100 * step;

    [[nodiscard]] std::vector<PersistentID> allSongs() const;
    [[nodiscard]] GroupIndex groups(std::uint64_t idsInOne) const;
    [[nodiscard]] static std::vector<GroupRow> rowsOfGroups(std::span<const GroupKey> groups,
                                                            std::uint64_t idsInOne);

    mutable std::mutex m_mutex;
    std::vector<PersistentID> m_songs;
    std::uint64_t m_lastID;
};

} // namespace trackwise
