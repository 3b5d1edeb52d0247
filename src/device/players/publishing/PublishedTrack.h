// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QByteArray>
#include <QString>
#include <QVariantMap>

#include <chrono>
#include <optional>

namespace trackwise {

/// What we tell others on the bus of the song that our own player plays.
struct PublishedTrack
{
    MediaItem item;
    std::chrono::milliseconds length{0};
    std::optional<QByteArray> path; ///< of the file, in the bytes of the file system
    QString artUrl;                 ///< empty: none
};

/// The object path that names @p track within the player of @p appId.
[[nodiscard]] QString publishedTrackId(const QString &appId, const std::optional<PublishedTrack> &track);

/// The metadata map as the MPRIS metadata guidelines type it; what is not known is left out.
/// https://www.freedesktop.org/wiki/Specifications/mpris-spec/metadata/
[[nodiscard]] QVariantMap publishedMetadata(const QString &appId, const std::optional<PublishedTrack> &track);

} // namespace trackwise
