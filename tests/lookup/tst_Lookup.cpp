// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/CatalogConfiguration.h"
#include "lookup/CatalogLink.h"
#include "lookup/CatalogLookup.h"
#include "lookup/CatalogReply.h"
#include "lookup/DroppedUrls.h"
#include "lookup/LibrarySearch.h"
#include "lookup/ListedLibrary.h"
#include "support/Test.h"

#include <QMimeData>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>

// From what is dropped to a song of the library: its addresses, the catalog's answer, the searches.
class tst_Lookup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheIdentifierOrSaysWhyThereIsNone()
    {
        using enum LinkProblem;
        const std::pair<QString, std::variant<CatalogLink, LinkProblem>> rows[]{
            {u"https://catalog.example.com/de/album/x/100?i=200"_s, CatalogLink{u"200"_s}},
            {u"https://catalog.example.com/a?l=de&i=200&uo=4#top"_s, CatalogLink{u"200"_s}},
            {u"https://catalog.example.com/a?i=00abc"_s, CatalogLink{u"00abc"_s}},
            {u"https://catalog.example.com/a?i=1&i=2"_s, CatalogLink{u"1"_s}},
            {u"https://catalog.example.com/a?%69=%31%32"_s, CatalogLink{u"12"_s}},
            {u"https://catalog.example.com/a?i=1%262%20"_s, CatalogLink{u"1%262%20"_s}},
            {u"https://catalog.example.com/a?i=1=2"_s, CatalogLink{u"1=2"_s}},
            {u"https://elsewhere.org/catalog.example/?i=7"_s, CatalogLink{u"7"_s}},
            {u"https://elsewhere.org/?from=catalog.example&i=7"_s, CatalogLink{u"7"_s}},
            {u"music://catalog.example.com/a?i=7"_s, CatalogLink{u"7"_s}},
            {u"https://elsewhere.org/?i=1 https://catalog.example.com/?i=2 https://catalog.example.com/?i=3"_s,
             CatalogLink{u"2"_s}},
            {u""_s, NotACatalogLink},
            {u"https://elsewhere.org/?i=1"_s, NotACatalogLink},
            {u"https://elsewhere.org/CATALOG.EXAMPLE?i=1"_s, NotACatalogLink},
            {u"https://catalog.example.com/de/album/x/100"_s, NoSongInLink},
            {u"https://catalog.example.com/?l=de&id=3"_s, NoSongInLink},
            {u"https://catalog.example.com/?I=3"_s, NoSongInLink},
            {u"https://catalog.example.com/?i"_s, NoSongInLink},
            {u"https://catalog.example.com/?i&i=3"_s, NoSongInLink},
            {u"https://catalog.example.com/?i="_s, NoSongInLink},
            {u"https://catalog.example.com/#?i=3"_s, NoSongInLink},
            {u"https://[catalog.example?i=3"_s, NoSongInLink},
            {u"https://catalog.example.com/ https://catalog.example.com/?i=3"_s, NoSongInLink},
        };
        for (const auto &[dropped, expected] : rows)
            QVERIFY2(catalogLink(dropped.split(u' ', Qt::SkipEmptyParts), u"catalog.example"_s) == expected,
                     qPrintable(dropped));
        QCOMPARE(catalogLookupAddress(u"https://lookup.example"_s, u"1%262%20"_s).toEncoded(),
                 "https://lookup.example/lookup?id=1%262%20&entity=musicTrack"_ba);
    }

    void findsAddressesInWhatIsDropped()
    {
        const QString list = u"text/uri-list"_s;
        const QString browser = u"text/x-moz-url"_s;
        const QString text = u"text/plain"_s;
        const QString html = u"text/html"_s;
        const QString title = u"https://a.example/?i=1&l=de\nA title\n"_s;
        const QByteArray link(reinterpret_cast<const char *>(title.utf16()), title.size() * 2);
        const QStringList one{u"https://a.example/?i=1&l=de"_s};
        const std::pair<QMap<QString, QByteArray>, QStringList> rows[]{
            {{}, {}},
            {{{list, "# comment\r\nhttps://a.example/?i=1&l=de\r\nfile:///tmp/x\r\n"}},
             one + QStringList{u"file:///tmp/x"_s}},
            {{{list, "https://a.example/?i=1&l=de"}, {text, "https://b.example"}}, one},
            {{{browser, link}, {text, "A title"}}, one},
            {{{browser, link.left(3)}}, {}},
            {{{text, "  Listen: https://a.example/?i=1&l=de\n"}}, one},
            {{{text, "a:b music // 12"}}, {}},
            {{{html, "<A title='x' HREF = \"https://a.example/?i=1&amp;l=de\">x</A>"}}, one},
            {{{html, "<a href='https://a.example/?i=1&l=de'>x</a>"}}, one},
            {{{html, "<b>x</b>"}, {text, "x"}}, {}},
            {{{text, QByteArray(8'000'000, 'x') + " https://a.example"}}, {}},
        };
        for (const auto &[formats, addresses] : rows) {
            QMimeData data;
            for (auto format = formats.begin(); format != formats.end(); ++format)
                data.setData(format.key(), format.value());
            QVERIFY2(droppedUrls(data) == addresses, formats.values().value(0).left(100));
        }
    }

    void takesItsConfigurationFromTheEnvironmentFirst()
    {
        const QTemporaryDir folder;
        QSettings file(folder.filePath(u"device.ini"_s), QSettings::IniFormat);
        QCOMPARE(catalogConfiguration(file), CatalogConfiguration());
        file.setValue(u"Catalog/Address"_s, u"https://file.example/api///"_s);
        file.setValue(u"Catalog/HostMarker"_s, u"file.marker"_s);
        qputenv("TRACKWISE_CATALOG_HOST_MARKER", "environment.marker");
        const CatalogConfiguration configuration = catalogConfiguration(file);
        qunsetenv("TRACKWISE_CATALOG_HOST_MARKER");
        QCOMPARE(configuration.baseAddress, u"https://file.example/api"_s);
        QCOMPARE(configuration.hostMarker, u"environment.marker"_s);
    }

    void readsTheFirstSongOfAReplyAndNothingElse()
    {
        const QByteArray song = R"({"kind":"song","trackName":"T","artistName":"A","collectionName":"C"})";
        for (const QByteArray &results : {song, R"({"wrapperType":"collection"},)" + song,
                                          R"({"kind":"music-video","trackName":"V"},{"kind":7},)" + song,
                                          song + R"(,{"kind":"song","trackName":"U"})"})
            QVERIFY2(catalogSongInReply(R"({"resultCount":1,"results":[)" + results + "]}") ==
                         std::optional(CatalogSong{u"T"_s, u"A"_s, u"C"_s}),
                     results);
        const auto results = [](const QByteArray &songs) { return R"({"results":[)" + songs + "]}"; };
        for (const QByteArray &reply :
             {""_ba, "<html>Not found</html>"_ba, results(song).chopped(1), R"("song")"_ba, '[' + song + ']',
              "{}"_ba, R"({"resultCount":1})"_ba, R"({"results":)" + song + '}', results({}),
              results(song + ",1"), results(R"({"kind":"Song"},{"kind":"album"},{})"),
              results(R"({"kind":"song","artistName":"A","collectionName":"C"})"),
              results(R"({"kind":"song","trackName":"T","artistName":null,"collectionName":"C"})"),
              results(R"({"kind":"song","trackName":"T","artistName":"A","collectionName":1},)" + song),
              "["_ba.repeated(2'000) + "]"_ba.repeated(2'000),
              results("{\"kind\":\"song\",\"trackName\":\"\xff\xfe\"}")})
            QVERIFY2(!catalogSongInReply(reply), reply);
    }

    void triesTheSearchesInOrder()
    {
        ListedLibrary library;
        library.add(1, "song", "band", "Other");
        library.add(2, "Song", "Somebody", "Album");
        library.add(3, "Song", "Band", "Live");
        library.add(4, "Song", "Band", "Album");
        library.add(6, "Single", "Band", "Album");
        library.add(5, "Single", "Band", "");
        // Title, artist and album, and the song that is found (0: none).
        const std::tuple<const char *, QString, QString, std::optional<QString>, quint64> rows[]{
            {"all three, though others come first", u"Song"_s, u"Band"_s, u"Album"_s, 4},
            {"another spelling of the artist", u"Song"_s, u"The Band"_s, u"Album"_s, 2},
            {"another edition of the album", u"Song"_s, u"Band"_s, u"Album (Deluxe)"_s, 3},
            {"no album", u"Song"_s, u"Band"_s, {}, 3},
            {"no album and another artist", u"Song"_s, u"The Band"_s, {}, 0},
            {"letter case, first of two", u"SONG"_s, u"BAND"_s, u"Album (Deluxe)"_s, 1},
            {"letter case, no album", u"SONG"_s, u"BAND"_s, {}, 1},
            {"an empty album is one too", u"Single"_s, u"Band"_s, u""_s, 5},
            {"nowhere", u"Other"_s, u"Band"_s, u"Album"_s, 0},
        };
        for (const auto &[what, title, artist, album, found] : rows) {
            const auto song = findLibrarySong(library, title, artist, album);
            QVERIFY2((song ? song->persistentID.value : 0) == found, what);
        }
    }
};

QTEST_GUILESS_MAIN(tst_Lookup)
#include "tst_Lookup.moc"
