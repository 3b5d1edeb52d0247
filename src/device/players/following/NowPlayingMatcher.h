// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/following/TrackMetadata.h"
#include "platform/SongMatching.h"

#include <optional>

namespace trackwise {

/// Finds the song of the library that a player's track is: by the very file, by an identifier (of a catalog
/// or of MusicBrainz), by title, artist, album and length, by those without an album where no other song has
/// them, and at last where one title has an addition such as "(Remastered 2011)". The first way that gives a
/// song wins. Looks at files: worker threads only.
class NowPlayingMatcher
{
public:
    /// @p library must outlive the matcher.
    explicit NowPlayingMatcher(const SongMatching &library)
        : m_library(library)
    {}

    [[nodiscard]] std::optional<PersistentID> match(const TrackMetadata &track) const;

private:
    [[nodiscard]] std::optional<PersistentID> byFile(const TrackMetadata &track) const;
    [[nodiscard]] std::optional<PersistentID> byIdentifier(const TrackMetadata &track) const;
    [[nodiscard]] std::optional<PersistentID> byTexts(const TrackMetadata &track) const;
    [[nodiscard]] std::vector<SongCandidate> similarlyTitled(const QString &strippedTitle) const;

    const SongMatching &m_library;
};

/// The identifier that a song has in the streaming catalog, from the address of its page; else empty.
[[nodiscard]] QString catalogIdentifierIn(const QString &url);

/// @p foldedTitle without what editions add to a title: "(remastered 2011)", " - live", " feat. x".
[[nodiscard]] QString withoutEdition(const QString &foldedTitle);

} // namespace trackwise
