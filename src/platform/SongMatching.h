// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace trackwise {

/// What stays the same when a file is renamed or reached by another path.
struct FileIdentity
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend bool operator==(const FileIdentity &, const FileIdentity &) = default;
};

/// A song of the library that may be the one another program means. Texts are folded, see
/// SongMatching::folded(); one that the song lacks is empty.
struct SongCandidate
{
    PersistentID id;
    QString foldedTitle;
    QString foldedArtist;
    QString foldedAlbumArtist;
    QString foldedAlbum;
    std::chrono::milliseconds length{0}; ///< zero: unknown
};

/// The look-ups by which a track that another program plays is found in the library. Each answers from an
/// index, in microseconds rather than milliseconds, and may be called on any thread. Of several songs that
/// fit an identity, one whose file is there goes before one on an absent disk, then the one added first goes
/// first. A song whose file is gone is not in the library.
class SongMatching
{
public:
    virtual ~SongMatching() = default;

    /// @p text without what people and players vary: letter case, diacritics, width, composed or decomposed
    /// form, white space at the ends and runs of it within. Punctuation stays.
    [[nodiscard]] virtual QString folded(const QString &text) const = 0;

    /// By the absolute path of the file, or of a link that leads to it. Blocks on the disk for a link.
    [[nodiscard]] virtual std::optional<PersistentID> idOfPath(const QByteArray &path) const = 0;
    [[nodiscard]] virtual std::optional<PersistentID> idOfFile(FileIdentity file) const = 0;
    [[nodiscard]] virtual std::optional<PersistentID> idOfCatalogID(const QString &identifier) const = 0;
    /// By the MusicBrainz recording identifier or, failing that, the release track identifier: players put
    /// either under the same name. Letter case does not matter.
    [[nodiscard]] virtual std::optional<PersistentID> idOfMusicBrainzID(const QString &identifier) const = 0;

    /// Songs with exactly this folded title, those whose file is there first, at most @p limit.
    [[nodiscard]] virtual std::vector<SongCandidate> songsTitled(const QString &foldedTitle,
                                                                 int limit) const = 0;
    /// Songs whose folded title begins with @p foldedPrefix, at most @p limit.
    [[nodiscard]] virtual std::vector<SongCandidate> songsWithTitlePrefix(const QString &foldedPrefix,
                                                                          int limit) const = 0;

    [[nodiscard]] virtual std::optional<MediaItem> song(PersistentID id) const = 0;
};

} // namespace trackwise
