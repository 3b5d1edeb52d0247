// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QString>

#include <optional>

namespace trackwise {

class MediaLibrary;

/// The library's song with these values: first by title, artist and album, then by title and album, then by
/// title and artist, at last by title and artist whatever the letter case. Where several songs fit, the
/// first in the library's order. Without @p album only the last two are tried. Any thread.
[[nodiscard]] std::optional<MediaItem> findLibrarySong(const MediaLibrary &library, const QString &title,
                                                       const QString &artist,
                                                       const std::optional<QString> &album);

/// The library's first song with exactly this catalog identifier. Any thread.
[[nodiscard]] std::optional<MediaItem> findLibrarySongByCatalogID(const MediaLibrary &library,
                                                                  const QString &identifier);

} // namespace trackwise
