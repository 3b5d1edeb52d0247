// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/TrackMetadata.h"
#include "support/Test.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

#include <limits>

class tst_TrackMetadata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void understandsEveryDialect()
    {
        const TrackMetadata artistA{.artists = {u"A"_s}};
        const TrackMetadata minute{.length = 1min};
        const std::tuple<const char *, QVariant, TrackMetadata> rows[]{
            {"xesam:title", u"T"_s, {.title = u"T"_s}},
            {"xesam:title", QStringList{u"T"_s, u"U"_s}, {.title = u"T"_s}},
            {"xesam:title", u" \n"_s, {}},
            {"xesam:title", 5, {}},
            {"xesam:title", QString(100000, u'x'), {.title = QString(4096, u'x')}},
            {"xesam:asText", QString(2 << 20, u'x'), {.lyrics = QString(1 << 20, u'x')}},
            {"xesam:artist", QStringList{u"A"_s}, artistA},
            {"xesam:artist", u"A"_s, artistA},
            {"xesam:artist",
             QVariantList{u"A"_s, 3, QVariant::fromValue(QDBusVariant(u"B"_s))},
             {.artists = {u"A"_s, u"B"_s}}},
            {"xesam:artist", QVariant::fromValue(QDBusVariant(QStringList{u"A"_s})), artistA},
            {"xesam:artist", QStringList{QString()}, {}},
            {"xesam:artist", QVariantMap{{u"a"_s, 1}}, {}},
            {"xesam:genre", u"G"_s, {.genres = {u"G"_s}}},
            {"xesam:genre", QStringList(QList<QString>(65, u"G"_s)), {.genres = QList<QString>(64, u"G"_s)}},
            {"mpris:trackid", u"spotify:track:1"_s, {.trackId = u"spotify:track:1"_s}},
            {"mpris:trackid", QVariant::fromValue(QDBusObjectPath(u"/0"_s)), {.trackId = u"/0"_s}},
            {"xesam:contentCreated", u"2021"_s, {.contentCreated = u"2021"_s}},
            {"mpris:length", qlonglong(60'000'000), minute},
            {"mpris:length", qulonglong(60'000'000), minute},
            {"mpris:length", 6e7, minute},
            {"mpris:length", u"60000000"_s, minute},
            {"mpris:length", u"1:00"_s, {}},
            {"mpris:length", qlonglong(0), {}},
            {"mpris:length", qlonglong(-1), {}},
            {"mpris:length", std::numeric_limits<qlonglong>::max(), {}},
            {"mpris:length", std::numeric_limits<double>::infinity(), {}},
            {"xesam:trackNumber", 0, {}},
            {"xesam:trackNumber", 1, {.trackNumber = 1}},
            {"xesam:trackNumber", u"7"_s, {.trackNumber = 7}},
            {"xesam:trackNumber", 1'000'000, {.trackNumber = 1'000'000}},
            {"xesam:trackNumber", 1'000'001, {}},
            {"xesam:url",
             u"file:///m/A%20Song.ext.mp3"_s,
             {.url = u"file:///m/A%20Song.ext.mp3"_s, .title = u"A Song.ext"_s}},
            {"xesam:url", u"https://example.org/song.mp3"_s, {.url = u"https://example.org/song.mp3"_s}}};
        for (const auto &[key, value, understood] : rows) {
            const QVariantMap said{{QString::fromLatin1(key), value}};
            QVERIFY2(metadataFrom(said) == understood, qPrintable(QDebug::toString(said)));
        }
    }

    void tellsTracksApart()
    {
        const TrackMetadata a = metadataFrom(
            {{u"mpris:trackid"_s, u"/constant"_s}, {u"xesam:title"_s, u"T"_s}, {u"xesam:artist"_s, u"A"_s}});
        TrackMetadata timed = a;
        timed.length = 3min;
        const std::pair<bool, void (*)(TrackMetadata &)> rows[]{
            {true, [](TrackMetadata &t) { t.albumTitle = u"later known"_s; }},
            {true, [](TrackMetadata &t) { t.length = 0s; }},
            {true, [](TrackMetadata &t) { t.length = 183s; }},
            {false, [](TrackMetadata &t) { t.length = 183001ms; }},
            {false, [](TrackMetadata &t) { t.trackId = u"/other"_s; }},
            {false, [](TrackMetadata &t) { t.url = u"file:///b"_s; }},
            {false, [](TrackMetadata &t) { t.title = u"U"_s; }},
            {false, [](TrackMetadata &t) { t.artists = {u"B"_s}; }}};
        QVERIFY(isSameTrack(a, timed));
        for (const auto &[isSame, change] : rows) {
            TrackMetadata other = timed;
            change(other);
            QCOMPARE(isSameTrack(timed, other), isSame);
            QCOMPARE(isSameTrack(other, timed), isSame);
        }
    }

    void findsLocalFiles()
    {
        const std::pair<QByteArray, QStringList> rows[]{
            {"/a/b.mp3", {u"file:///a/b.mp3"_s, u"file://localhost/a/b.mp3"_s, u"file:/a/b.mp3"_s}},
            {"/a/100%.mp3", {u"/a/100%.mp3"_s}},
            {"/a/# \xc3\xbc.mp3", {u"file:///a/%23%20%C3%BC.mp3"_s, u"file:///a/%23 ü.mp3"_s}},
            {"/a/\xff.mp3", {u"file:///a/%FF.mp3"_s}},
            {{}, {u"file:///a/%00b"_s, u"https://example.org/a"_s, u"file:"_s, u"file://host"_s}}};
        for (const auto &[path, urls] : rows) {
            for (const QString &url : urls)
                QVERIFY2(localPath(url) == path, qPrintable(url));
        }
    }

    void makesARecordOfAnUnknownTrack()
    {
        const MediaItem item = itemFrom({.title = u"T"_s,
                                         .artists = {u"A"_s, u"B"_s},
                                         .contentCreated = u"1970-01-02T00:00:00"_s,
                                         .length = 90500ms});
        QVERIFY(item == (MediaItem{.title = u"T"_s,
                                   .artist = u"A, B"_s,
                                   .releaseDate = Instant(24h),
                                   .playbackDuration = 90.5}));
    }
};

QTEST_GUILESS_MAIN(tst_TrackMetadata)
#include "tst_TrackMetadata.moc"
