// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/CatalogReply.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace trackwise {

namespace {

bool isSong(const QJsonValue &result)
{
    return result[QLatin1StringView("kind")].toString() == QLatin1StringView("song");
}

std::optional<CatalogSong> songFrom(const QJsonValue &result)
{
    const QJsonValue title = result[QLatin1StringView("trackName")];
    const QJsonValue artist = result[QLatin1StringView("artistName")];
    const QJsonValue album = result[QLatin1StringView("collectionName")];
    if (!title.isString() || !artist.isString() || !album.isString())
        return std::nullopt;
    return CatalogSong{title.toString(), artist.toString(), album.toString()};
}

} // namespace

std::optional<CatalogSong> catalogSongInReply(const QByteArray &reply)
{
    const QJsonArray results =
        QJsonDocument::fromJson(reply).object().value(QLatin1StringView("results")).toArray();
    const bool areObjects = std::ranges::all_of(results, [](const QJsonValue &v) { return v.isObject(); });
    const auto song = std::ranges::find_if(results, isSong);
    if (!areObjects || song == results.end())
        return std::nullopt;
    return songFrom(*song);
}

} // namespace trackwise
