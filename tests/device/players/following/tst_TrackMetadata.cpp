// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/following/TrackMetadata.h"

#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;
using namespace trackwise;
using namespace std::chrono_literals;

class tst_TrackMetadata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void understandsEveryDialect()
    {
        const auto nothing = [](TrackMetadata &) {};
        const auto artistA = [](TrackMetadata &t) { t.artists = {u"A"_s}; };
        const auto minute = [](TrackMetadata &t) { t.length = 1min; };
        const std::tuple<const char *, QVariant, void (*)(TrackMetadata &)> rows[]{
            {"xesam:title", u"T"_s, [](TrackMetadata &t) { t.title = u"T"_s; }},
            {"xesam:title", QStringList{u"T"_s, u"U"_s}, [](TrackMetadata &t) { t.title = u"T"_s; }},
            {"xesam:title", u" \n"_s, nothing},
            {"xesam:title", 5, nothing},
            {"xesam:title", QString(100000, u'x'), [](TrackMetadata &t) { t.title = QString(4096, u'x'); }},
            {"xesam:asText", QString(2 << 20, u'x'),
             [](TrackMetadata &t) { t.lyrics = QString(1 << 20, u'x'); }},
            {"xesam:artist", QStringList{u"A"_s}, artistA},
            {"xesam:artist", u"A"_s, artistA},
            {"xesam:artist", QVariantList{u"A"_s, 3, QVariant::fromValue(QDBusVariant(u"B"_s))},
             [](TrackMetadata &t) {
                 t.artists = {u"A"_s, u"B"_s};
             }},
            {"xesam:artist", QVariant::fromValue(QDBusVariant(QStringList{u"A"_s})), artistA},
            {"xesam:artist", QStringList{QString()}, nothing},
            {"xesam:genre", u"G"_s, [](TrackMetadata &t) { t.genres = {u"G"_s}; }},
            {"mpris:trackid", u"spotify:track:1"_s,
             [](TrackMetadata &t) { t.trackId = u"spotify:track:1"_s; }},
            {"mpris:trackid", QVariant::fromValue(QDBusObjectPath(u"/0"_s)),
             [](TrackMetadata &t) { t.trackId = u"/0"_s; }},
            {"mpris:length", qlonglong(60'000'000), minute},
            {"mpris:length", qulonglong(60'000'000), minute},
            {"mpris:length", 6e7, minute},
            {"mpris:length", u"60000000"_s, minute},
            {"mpris:length", u"1:00"_s, nothing},
            {"mpris:length", qlonglong(0), nothing},
            {"mpris:length", qlonglong(-1), nothing},
            {"mpris:length", std::numeric_limits<qlonglong>::max(), nothing},
            {"mpris:length", std::numeric_limits<double>::infinity(), nothing},
            {"xesam:trackNumber", 7, [](TrackMetadata &t) { t.trackNumber = 7; }},
            {"xesam:trackNumber", u"7"_s, [](TrackMetadata &t) { t.trackNumber = 7; }},
            {"xesam:trackNumber", 0, nothing},
            {"xesam:trackNumber", 1, [](TrackMetadata &t) { t.trackNumber = 1; }},
            {"xesam:trackNumber", 1'000'000, [](TrackMetadata &t) { t.trackNumber = 1'000'000; }},
            {"xesam:trackNumber", 1'000'001, nothing},
            {"xesam:genre", QStringList(QList<QString>(65, u"G"_s)),
             [](TrackMetadata &t) { t.genres = QStringList(QList<QString>(64, u"G"_s)); }},
            {"xesam:url", u"file:///m/A%20Song.ext.mp3"_s,
             [](TrackMetadata &t) {
                 t.url = u"file:///m/A%20Song.ext.mp3"_s;
                 t.title = u"A Song.ext"_s;
             }},
            {"xesam:url", u"https://example.org/song.mp3"_s,
             [](TrackMetadata &t) { t.url = u"https://example.org/song.mp3"_s; }},
            {"xesam:artist", QVariantMap{{u"a"_s, 1}}, nothing}};
        for (const auto &[key, value, fill] : rows) {
            TrackMetadata understood;
            fill(understood);
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
        const std::pair<QString, QByteArray> rows[]{{u"file:///a/b.mp3"_s, "/a/b.mp3"_ba},
                                                    {u"file://localhost/a/b.mp3"_s, "/a/b.mp3"_ba},
                                                    {u"file:/a/b.mp3"_s, "/a/b.mp3"_ba},
                                                    {u"/a/100%.mp3"_s, "/a/100%.mp3"_ba},
                                                    {u"file:///a/%23%20%C3%BC.mp3"_s, "/a/# \xc3\xbc.mp3"_ba},
                                                    {u"file:///a/ü b.mp3"_s, "/a/\xc3\xbc b.mp3"_ba},
                                                    {u"file:///a/%FF.mp3"_s, "/a/\xff.mp3"_ba},
                                                    {u"file:///a/%00b"_s, QByteArray()},
                                                    {u"https://example.org/a"_s, QByteArray()},
                                                    {u"file:"_s, QByteArray()},
                                                    {u"file://host"_s, QByteArray()}};
        for (const auto &[url, path] : rows) {
            QVERIFY2(localPath(url) == path, qPrintable(url));
        }
    }

    void makesARecordOfAnUnknownTrack()
    {
        const MediaItem item =
            itemFrom(metadataFrom({{u"xesam:title"_s, u"T"_s},
                                   {u"xesam:artist"_s, QStringList{u"A"_s, u"B"_s}},
                                   {u"mpris:length"_s, qlonglong(90'500'000)},
                                   {u"xesam:contentCreated"_s, u"1970-01-02T00:00:00"_s}}));
        QVERIFY(item.title == u"T"_s && item.artist == u"A, B"_s && !item.albumTitle);
        QCOMPARE(item.playbackDuration, 90.5);
        QVERIFY(item.releaseDate.has_value() && !item.persistentID.isInLibrary());
    }
};

QTEST_GUILESS_MAIN(tst_TrackMetadata)
#include "tst_TrackMetadata.moc"
