// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/TrackMetadata.h"

#include "device/bus/PlainValue.h"

#include <QDBusObjectPath>
#include <QDateTime>
#include <QFile>
#include <QMetaType>

#include <cmath>
#include <limits>

namespace trackwise {

using std::chrono::microseconds;
using std::chrono::milliseconds;

namespace {

constexpr qsizetype longestText = 4096;
constexpr qsizetype longestLyrics = 1 << 20;
constexpr qsizetype mostNames = 64;
constexpr milliseconds sameLength{3000};

bool isText(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<QString>();
}

QStringList textsIn(const QVariant &wrapped)
{
    const QVariant value = plainValue(wrapped);
    QStringList texts;
    if (isText(value))
        texts << value.toString();
    else if (value.metaType() == QMetaType::fromType<QStringList>())
        texts = value.toStringList().mid(0, mostNames);
    else if (value.metaType() == QMetaType::fromType<QDBusObjectPath>())
        texts << value.value<QDBusObjectPath>().path();
    else if (value.metaType() == QMetaType::fromType<QByteArray>())
        texts << QString::fromUtf8(value.toByteArray());
    else if (value.metaType() == QMetaType::fromType<QVariantList>()) {
        for (const QVariant &element : value.toList().mid(0, mostNames)) {
            if (const QVariant inner = plainValue(element); isText(inner))
                texts << inner.toString();
        }
    }
    QStringList result;
    for (const QString &text : std::as_const(texts)) {
        if (const QString trimmed = text.left(longestText).trimmed(); !trimmed.isEmpty())
            result << trimmed;
    }
    return result;
}

QString textIn(const QVariant &value)
{
    return textsIn(value).value(0);
}

/// Any kind of number, or the text of one; nothing else (a bool is no number here).
std::optional<double> numberIn(const QVariant &wrapped)
{
    const QVariant value = plainValue(wrapped);
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::UChar:
    case QMetaType::QString: {
        bool ok = false;
        const double number = value.toDouble(&ok);
        return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

unsigned countIn(const QVariant &value)
{
    constexpr double most = 1'000'000;
    const double number = numberIn(value).value_or(0);
    return number >= 1 && number <= most ? static_cast<unsigned>(number) : 0;
}

/// Zero, negative and the largest number stand for an unknown length in one player or another.
milliseconds lengthIn(const QVariant &value)
{
    constexpr double longest = 1e15; // microseconds: 31 years
    const double number = numberIn(value).value_or(0);
    if (number <= 0 || number >= longest)
        return milliseconds(0);
    return std::chrono::round<milliseconds>(microseconds(static_cast<std::int64_t>(number)));
}

std::optional<QString> present(const QString &text)
{
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

} // namespace

TrackMetadata metadataFrom(const QVariantMap &map)
{
    const auto value = [&map](const char *key) { return map.value(QLatin1String(key)); };
    TrackMetadata track;
    track.trackId = textIn(value("mpris:trackid"));
    track.url = textIn(value("xesam:url"));
    track.title = textIn(value("xesam:title"));
    track.artists = textsIn(value("xesam:artist"));
    track.albumTitle = textIn(value("xesam:album"));
    track.albumArtists = textsIn(value("xesam:albumArtist"));
    track.composers = textsIn(value("xesam:composer"));
    track.genres = textsIn(value("xesam:genre"));
    track.comment = textIn(value("xesam:comment"));
    track.contentCreated = textIn(value("xesam:contentCreated"));
    track.musicBrainzId = textIn(value("xesam:musicBrainzTrackID"));
    if (const QVariant lyrics = plainValue(value("xesam:asText")); isText(lyrics))
        track.lyrics = lyrics.toString().left(longestLyrics);
    track.length = lengthIn(value("mpris:length"));
    track.trackNumber = countIn(value("xesam:trackNumber"));
    track.discNumber = countIn(value("xesam:discNumber"));
    track.beatsPerMinute = countIn(value("xesam:audioBPM"));
    if (track.title.isEmpty()) {
        const QString path = QFile::decodeName(localPath(track.url));
        track.title = path.section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, -2);
    }
    return track;
}

bool isSameTrack(const TrackMetadata &a, const TrackMetadata &b)
{
    const bool lengthsAgree =
        a.length.count() == 0 || b.length.count() == 0 || std::chrono::abs(a.length - b.length) <= sameLength;
    return a.trackId == b.trackId && a.url == b.url && a.title == b.title && a.artists == b.artists &&
           lengthsAgree;
}

MediaItem itemFrom(const TrackMetadata &track)
{
    const QString separator = QStringLiteral(", ");
    MediaItem item;
    item.title = present(track.title);
    item.artist = present(track.artists.join(separator));
    item.albumTitle = present(track.albumTitle);
    item.albumArtist = present(track.albumArtists.join(separator));
    item.composer = present(track.composers.join(separator));
    item.genre = present(track.genres.join(separator));
    item.comments = present(track.comment);
    item.lyrics = present(track.lyrics);
    item.playbackDuration = std::chrono::duration<double>(track.length).count();
    item.albumTrackNumber = track.trackNumber;
    item.discNumber = track.discNumber;
    item.beatsPerMinute = track.beatsPerMinute;
    const QDateTime created = QDateTime::fromString(track.contentCreated, Qt::ISODate);
    if (created.isValid())
        item.releaseDate = Instant(milliseconds(created.toMSecsSinceEpoch()));
    return item;
}

QByteArray localPath(const QString &url)
{
    if (url.startsWith(QLatin1Char('/')))
        return QFile::encodeName(url);
    // Not through QUrl, which takes bytes that are no UTF-8 for U+FFFD.
    constexpr QLatin1String scheme("file:");
    if (!url.startsWith(scheme, Qt::CaseInsensitive))
        return {};
    QByteArray rest = url.mid(scheme.size()).toUtf8();
    if (rest.startsWith("//")) // an authority, usually empty
        rest = rest.mid(std::max(rest.indexOf('/', 2), qsizetype(2)));
    const qsizetype end = rest.indexOf('#');
    const QByteArray path = QByteArray::fromPercentEncoding(end < 0 ? rest : rest.left(end));
    return path.startsWith('/') && !path.contains('\0') ? path : QByteArray();
}

} // namespace trackwise
