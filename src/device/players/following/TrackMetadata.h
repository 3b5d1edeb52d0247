// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <chrono>

namespace trackwise {

/// What a player says of its track, after its dialect has been understood. Texts that it does not give are
/// empty, numbers zero.
struct TrackMetadata
{
    QString trackId;
    QString url;
    QString title; ///< the file's name when the player gives no title
    QStringList artists;
    QString albumTitle;
    QStringList albumArtists;
    QStringList composers;
    QStringList genres;
    QString comment;
    QString lyrics;
    QString contentCreated;
    QString musicBrainzId;
    std::chrono::milliseconds length{0};
    unsigned trackNumber = 0;
    unsigned discNumber = 0;
    unsigned beatsPerMinute = 0;

    /// Whether there is a track at all.
    [[nodiscard]] bool isTrack() const { return !title.isEmpty() || !url.isEmpty(); }

    friend bool operator==(const TrackMetadata &, const TrackMetadata &) = default;
};

/// Reads the metadata map of a player, whatever types it uses: a text where a list belongs and the other way
/// round, a length in any kind of number or as text, values wrapped once more. What cannot be read is absent.
[[nodiscard]] TrackMetadata metadataFrom(const QVariantMap &map);

/// Whether both describe the same track being on, one of them perhaps more fully: many players send the
/// length later. The track's identifier alone says nothing; some players never change it.
[[nodiscard]] bool isSameTrack(const TrackMetadata &a, const TrackMetadata &b);

/// The record of a track that the library does not have.
[[nodiscard]] MediaItem itemFrom(const TrackMetadata &track);

/// The path of a local file that @p url names (or is), in the bytes of the file system; else empty.
[[nodiscard]] QByteArray localPath(const QString &url);

} // namespace trackwise
