// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SongJson.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QTimeZone>

namespace trackwise::cli {

namespace {

QJsonValue text(const QString &value)
{
    return QString::fromUtf8(value.toUtf8()); // without halves of characters, which JSON cannot hold
}

QJsonValue text(const std::optional<QString> &value)
{
    return value ? text(*value) : QJsonValue();
}

QJsonValue date(const std::optional<Instant> &instant)
{
    if (!instant)
        return {};
    return QDateTime::fromMSecsSinceEpoch(instant->time_since_epoch().count(), Qt::UTC)
        .toString(Qt::ISODateWithMs);
}

QJsonValue number(unsigned value)
{
    return static_cast<qint64>(value);
}

} // namespace

QJsonObject toJson(const LibrarySong &song)
{
    const MediaItem &item = song.item;
    const QByteArray path = song.file.path();
    QJsonObject json{
        {QStringLiteral("path"), QString::fromUtf8(path)},
        {QStringLiteral("available"), song.availability == Availability::Available},
        {QStringLiteral("title"), text(item.title)},
        {QStringLiteral("artist"), text(item.artist)},
        {QStringLiteral("albumTitle"), text(item.albumTitle)},
        {QStringLiteral("albumArtist"), text(item.albumArtist)},
        {QStringLiteral("composer"), text(item.composer)},
        {QStringLiteral("genre"), text(item.genre)},
        {QStringLiteral("userGrouping"), text(item.userGrouping)},
        {QStringLiteral("comments"), text(item.comments)},
        {QStringLiteral("lyrics"), text(item.lyrics)},
        {QStringLiteral("releaseDate"), date(item.releaseDate)},
        {QStringLiteral("lastPlayedDate"), date(item.lastPlayedDate)},
        {QStringLiteral("dateAddedForReal"), date(item.dateAddedForReal)},
        {QStringLiteral("playbackDuration"), item.playbackDuration},
        {QStringLiteral("playCount"), number(item.playCount)},
        {QStringLiteral("skipCount"), number(item.skipCount)},
        {QStringLiteral("rating"), number(item.rating)},
        {QStringLiteral("beatsPerMinute"), number(item.beatsPerMinute)},
        {QStringLiteral("albumTrackNumber"), number(item.albumTrackNumber)},
        {QStringLiteral("albumTrackCount"), number(item.albumTrackCount)},
        {QStringLiteral("discNumber"), number(item.discNumber)},
        {QStringLiteral("discCount"), number(item.discCount)},
        {QStringLiteral("isCompilation"), item.isCompilation},
        {QStringLiteral("isExplicitItem"), item.isExplicitItem},
        {QStringLiteral("persistentID"), item.persistentID.toString()},
        {QStringLiteral("playbackStoreID"), text(item.playbackStoreID)},
        {QStringLiteral("artwork"),
         item.artwork ? QJsonValue(QString::fromLatin1(item.artwork->key())) : QJsonValue()},
    };
    if (QString::fromUtf8(path).toUtf8() != path)
        json.insert(QStringLiteral("path_hex"), QString::fromLatin1(path.toHex()));
    return json;
}

QByteArray lineOf(const QJsonObject &json)
{
    return QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace trackwise::cli
