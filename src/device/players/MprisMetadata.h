// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QByteArray>
#include <QString>
#include <QVariantMap>

#include <chrono>
#include <optional>

namespace trackwise {

inline constexpr char mprisPath[] = "/org/mpris/MediaPlayer2";
inline constexpr char mprisPrefix[] = "org.mpris.MediaPlayer2.";
inline constexpr char mprisRootInterface[] = "org.mpris.MediaPlayer2";
inline constexpr char mprisPlayerInterface[] = "org.mpris.MediaPlayer2.Player";

/// What is published of a song.
struct PublishedSong
{
    MediaItem item;
    std::chrono::milliseconds length{0};
    std::optional<QByteArray> path; ///< of the file, in the bytes of the file system
    QString artUrl;                 ///< empty: none
};

/// The object path that names @p song within the player of @p appId.
[[nodiscard]] QString mprisTrackId(const QString &appId, const std::optional<PublishedSong> &song);

/// The metadata map as the MPRIS metadata guidelines type it; what is not known is left out.
/// https://www.freedesktop.org/wiki/Specifications/mpris-spec/metadata/
[[nodiscard]] QVariantMap mprisMetadata(const QString &appId, const std::optional<PublishedSong> &song);

} // namespace trackwise
