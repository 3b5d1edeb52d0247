// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/following/TrackMetadata.h"
#include "platform/SongMatching.h"

#include <optional>

namespace trackwise {

/// How sure it is that a song of the library is the track that a player plays.
enum class MatchedBy {
    File,         ///< the player names the very file
    Identifier,   ///< of a catalog or of MusicBrainz
    AlbumTexts,   ///< title, artist, album and length
    Texts,        ///< title, artist and length, and no other song has them
    SimilarTitle, ///< as before, but one title has an addition such as "(Remastered 2011)": probable
};

struct SongMatch
{
    PersistentID song;
    MatchedBy by = MatchedBy::File;

    friend bool operator==(const SongMatch &, const SongMatch &) = default;
};

/// Finds a player's track in the library; the surest way that gives a song wins. Looks at files: worker
/// threads only.
class NowPlayingMatcher
{
public:
    /// @p library must outlive the matcher.
    explicit NowPlayingMatcher(const SongMatching &library)
        : m_library(library)
    {}

    [[nodiscard]] std::optional<SongMatch> match(const TrackMetadata &track) const;

private:
    [[nodiscard]] std::optional<PersistentID> byFile(const TrackMetadata &track) const;
    [[nodiscard]] std::optional<PersistentID> byIdentifier(const TrackMetadata &track) const;
    [[nodiscard]] std::optional<SongMatch> byTexts(const TrackMetadata &track) const;
    [[nodiscard]] std::vector<SongCandidate> similarlyTitled(const QString &strippedTitle) const;

    const SongMatching &m_library;
};

/// The identifier that a song has in the streaming catalog, from the address of its page; else empty.
[[nodiscard]] QString catalogIdentifierIn(const QString &url);

/// @p foldedTitle without what editions add to a title: "(remastered 2011)", " - live", " feat. x".
[[nodiscard]] QString withoutEdition(const QString &foldedTitle);

} // namespace trackwise
