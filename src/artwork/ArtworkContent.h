// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QString>
#include <QTimeZone>

#include <optional>

namespace trackwise {

/// What an artwork view is made for.
struct ArtworkContent
{
    std::optional<MediaItem> mediaItem;
    bool isNowPlaying = false;             ///< the song is followed, not picked
    bool supportsPlayback = false;         ///< the host allows the app's own play button
    bool alignPlaybackWithArtwork = false; ///< the playback row is exactly as wide as the tile
};

/// Side of the tile for the width that the host has to give, both in points.
[[nodiscard]] qreal artworkSide(qreal availableWidth);

/// The symbol of an empty tile. It changed on 20 September 2021, at the beginning of the day in @p zone.
[[nodiscard]] QString placeholderSymbol(Instant now, const QTimeZone &zone);

/// The texts beside the play button.
struct TitleBlock
{
    QString title;                 ///< the file's name when the song has none, "--" without either
    std::optional<QString> artist; ///< absent: no such line; "--" when it is there but empty
    bool isExplicit = false;       ///< the title is followed by a mark

    friend bool operator==(const TitleBlock &, const TitleBlock &) = default;
};

[[nodiscard]] TitleBlock titleBlock(const MediaItem &song, const QString &fileName = {});
/// The whole block as a screen reader says it, the mark as a word.
[[nodiscard]] QString spokenText(const TitleBlock &block);

} // namespace trackwise
