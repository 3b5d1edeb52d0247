// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace trackwise {

/// A song as the public catalog describes it.
struct CatalogSong
{
    QString title;
    QString artist;
    QString album;

    friend bool operator==(const CatalogSong &, const CatalogSong &) = default;
};

/// The first song in the catalog service's reply: a JSON object whose "results" are objects, of which the
/// first one with the "kind" "song" has "trackName", "artistName" and "collectionName". Nothing when the
/// reply is anything else.
[[nodiscard]] std::optional<CatalogSong> catalogSongInReply(const QByteArray &reply);

} // namespace trackwise
