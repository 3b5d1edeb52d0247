// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/players/TrackMetadata.h"

#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QTest>

#include <limits>

using namespace trackwise;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(trackwise::TrackMetadata)

namespace {

QString text(const char *value)
{
    return QString::fromUtf8(value);
}

QVariantMap map(const char *key, const QVariant &value)
{
    return {{QString::fromLatin1(key), value}};
}

TrackMetadata track(void (*fill)(TrackMetadata &))
{
    TrackMetadata result;
    fill(result);
    return result;
}

} // namespace

class tst_TrackMetadata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void understandsEveryDialect_data()
    {
        QTest::addColumn<QVariantMap>("said");
        QTest::addColumn<TrackMetadata>("understood");
        const auto row = [](const char *name, const QVariantMap &said, void (*fill)(TrackMetadata &)) {
            QTest::newRow(name) << said << track(fill);
        };
        const auto nothing = [](TrackMetadata &) {};
        const auto artistA = [](TrackMetadata &t) { t.artists = {text("A")}; };
        const auto minute = [](TrackMetadata &t) { t.length = 1min; };

        row("nothing", {}, nothing);
        row("title", map("xesam:title", text("T")), [](TrackMetadata &t) { t.title = text("T"); });
        row("title as list", map("xesam:title", QStringList{text("T"), text("U")}),
            [](TrackMetadata &t) { t.title = text("T"); });
        row("title of spaces", map("xesam:title", text(" \n")), nothing);
        row("title as number", map("xesam:title", 5), nothing);
        row("endless title", map("xesam:title", QString(100000, QLatin1Char('x'))),
            [](TrackMetadata &t) { t.title = QString(4096, QLatin1Char('x')); });
        row("artist", map("xesam:artist", QStringList{text("A")}), artistA);
        row("artist as text", map("xesam:artist", text("A")), artistA);
        row("artist as list of anything",
            map("xesam:artist", QVariantList{text("A"), 3, QVariant::fromValue(QDBusVariant(text("B")))}),
            [](TrackMetadata &t) {
                t.artists = {text("A"), text("B")};
            });
        row("artist wrapped", map("xesam:artist", QVariant::fromValue(QDBusVariant(QStringList{text("A")}))),
            artistA);
        row("empty artist", map("xesam:artist", QStringList{QString()}), nothing);
        row("genre as text", map("xesam:genre", text("G")), [](TrackMetadata &t) { t.genres = {text("G")}; });
        row("track as text", map("mpris:trackid", text("spotify:track:1")),
            [](TrackMetadata &t) { t.trackId = text("spotify:track:1"); });
        row("track as path", map("mpris:trackid", QVariant::fromValue(QDBusObjectPath(text("/0")))),
            [](TrackMetadata &t) { t.trackId = text("/0"); });
        row("length", map("mpris:length", qlonglong(60'000'000)), minute);
        row("length, unsigned", map("mpris:length", qulonglong(60'000'000)), minute);
        row("length, 32 bits", map("mpris:length", 60'000'000), minute);
        row("length, fraction", map("mpris:length", 6e7), minute);
        row("length as text", map("mpris:length", text("60000000")), minute);
        row("length as other text", map("mpris:length", text("1:00")), nothing);
        row("length zero", map("mpris:length", qlonglong(0)), nothing);
        row("length negative", map("mpris:length", qlonglong(-1)), nothing);
        row("length without end", map("mpris:length", std::numeric_limits<qlonglong>::max()), nothing);
        row("length beyond numbers", map("mpris:length", std::numeric_limits<double>::infinity()), nothing);
        row("track number", map("xesam:trackNumber", 7), [](TrackMetadata &t) { t.trackNumber = 7; });
        row("track number as text", map("xesam:trackNumber", text("7")),
            [](TrackMetadata &t) { t.trackNumber = 7; });
        row("negative track number", map("xesam:trackNumber", -1), nothing);
        row("title from the file", map("xesam:url", text("file:///m/A%20Song.ext.mp3")),
            [](TrackMetadata &t) {
                t.url = text("file:///m/A%20Song.ext.mp3");
                t.title = text("A Song.ext");
            });
        row("no title from the net", map("xesam:url", text("https://example.org/song.mp3")),
            [](TrackMetadata &t) { t.url = text("https://example.org/song.mp3"); });
        row("keys of their own", map("rhythmbox:streamTitle", text("x")), nothing);
        row("text where a map belongs", map("xesam:artist", QVariantMap{{text("a"), 1}}), nothing);
    }
    void understandsEveryDialect()
    {
        QFETCH(QVariantMap, said);
        QFETCH(TrackMetadata, understood);
        QVERIFY(metadataFrom(said) == understood);
    }

    void tellsTracksApart()
    {
        const TrackMetadata a = metadataFrom({{text("mpris:trackid"), text("/constant")},
                                              {text("xesam:title"), text("T")},
                                              {text("xesam:artist"), text("A")}});
        TrackMetadata b = a;
        b.length = 3min;
        b.albumTitle = text("later known");
        QVERIFY(isSameTrack(a, b));
        TrackMetadata c = b;
        c.length = 4min;
        QVERIFY(!isSameTrack(b, c));
        c = a;
        c.title = text("U");
        QVERIFY(!isSameTrack(a, c));
    }

    void findsLocalFiles_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<QByteArray>("path");
        QTest::newRow("file") << text("file:///a/b.mp3") << QByteArray("/a/b.mp3");
        QTest::newRow("with a host") << text("file://localhost/a/b.mp3") << QByteArray("/a/b.mp3");
        QTest::newRow("one slash") << text("file:/a/b.mp3") << QByteArray("/a/b.mp3");
        QTest::newRow("path") << text("/a/100%.mp3") << QByteArray("/a/100%.mp3");
        QTest::newRow("encoded") << text("file:///a/%23%20%C3%BC.mp3") << QByteArray("/a/# \xc3\xbc.mp3");
        QTest::newRow("not encoded") << text("file:///a/ü b.mp3") << QByteArray("/a/\xc3\xbc b.mp3");
        QTest::newRow("not UTF-8") << text("file:///a/%FF.mp3") << QByteArray("/a/\xff.mp3");
        QTest::newRow("with an end") << text("file:///a/%00b") << QByteArray();
        QTest::newRow("elsewhere") << text("https://example.org/a") << QByteArray();
        QTest::newRow("nothing") << text("file:") << QByteArray();
        QTest::newRow("host only") << text("file://host") << QByteArray();
    }
    void findsLocalFiles()
    {
        QFETCH(QString, url);
        QFETCH(QByteArray, path);
        QCOMPARE(localPath(url), path);
    }

    void makesARecordOfAnUnknownTrack()
    {
        const MediaItem item =
            itemFrom(metadataFrom({{text("xesam:title"), text("T")},
                                   {text("xesam:artist"), QStringList{text("A"), text("B")}},
                                   {text("mpris:length"), qlonglong(90'500'000)},
                                   {text("xesam:contentCreated"), text("1970-01-02T00:00:00")}}));
        QCOMPARE(item.title, text("T"));
        QCOMPARE(item.artist, text("A, B"));
        QCOMPARE(item.playbackDuration, 90.5);
        QVERIFY(item.releaseDate.has_value());
        QVERIFY(!item.persistentID.isInLibrary());
        QVERIFY(!item.albumTitle);
    }
};

QTEST_GUILESS_MAIN(tst_TrackMetadata)
#include "tst_TrackMetadata.moc"
