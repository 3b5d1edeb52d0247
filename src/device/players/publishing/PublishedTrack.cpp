// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/publishing/PublishedTrack.h"

#include <QDBusObjectPath>
#include <QDateTime>
#include <QStringList>

namespace trackwise {

namespace {

constexpr double mostStars = 5;

QString localTime(Instant instant)
{
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count());
    return local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODate);
}

class MetadataMap
{
public:
    void text(const char *key, const std::optional<QString> &value)
    {
        if (value && !value->isEmpty())
            add(key, *value);
    }
    void list(const char *key, const std::optional<QString> &value)
    {
        if (value && !value->isEmpty())
            add(key, QStringList(*value));
    }
    void number(const char *key, unsigned value)
    {
        if (value > 0)
            add(key, static_cast<int>(value));
    }
    /// In local time: who shows only the day shows the one that the library means.
    void date(const char *key, const std::optional<Instant> &value)
    {
        if (value)
            add(key, localTime(*value));
    }
    void add(const char *key, const QVariant &value) { m_map.insert(QLatin1String(key), value); }

    [[nodiscard]] const QVariantMap &map() const { return m_map; }

private:
    QVariantMap m_map;
};

} // namespace

QString publishedTrackId(const QString &appId, const std::optional<PublishedTrack> &track)
{
    if (!track)
        return QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack");
    QString base = appId;
    base.replace(QLatin1Char('.'), QLatin1Char('/')).replace(QLatin1Char('-'), QLatin1Char('_'));
    return QStringLiteral("/%1/Track/%2").arg(base, track->item.persistentID.toString());
}

QVariantMap publishedMetadata(const QString &appId, const std::optional<PublishedTrack> &track)
{
    MetadataMap map;
    map.add("mpris:trackid", QVariant::fromValue(QDBusObjectPath(publishedTrackId(appId, track))));
    if (!track)
        return map.map();
    const MediaItem &item = track->item;
    if (track->length.count() > 0)
        map.add("mpris:length", static_cast<qlonglong>(std::chrono::microseconds(track->length).count()));
    if (track->path) // percent-encoded from the bytes: the name need not be UTF-8
        map.add("xesam:url", QString::fromLatin1("file://" + track->path->toPercentEncoding("/")));
    map.text("mpris:artUrl", track->artUrl);
    map.text("xesam:title", item.title);
    map.text("xesam:album", item.albumTitle);
    map.text("xesam:asText", item.lyrics);
    map.list("xesam:artist", item.artist);
    map.list("xesam:albumArtist", item.albumArtist);
    map.list("xesam:composer", item.composer);
    map.list("xesam:genre", item.genre);
    map.list("xesam:comment", item.comments);
    map.number("xesam:trackNumber", item.albumTrackNumber);
    map.number("xesam:discNumber", item.discNumber);
    map.number("xesam:audioBPM", item.beatsPerMinute);
    map.add("xesam:useCount", static_cast<int>(item.playCount));
    if (item.rating > 0)
        map.add("xesam:userRating", item.rating / mostStars);
    map.date("xesam:contentCreated", item.releaseDate);
    map.date("xesam:lastUsed", item.lastPlayedDate);
    return map.map();
}

} // namespace trackwise
