// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/CatalogReply.h"

#include <QTest>

using namespace trackwise;

class tst_CatalogReply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheFirstSong_data()
    {
        QTest::addColumn<QByteArray>("reply");
        const QByteArray song = R"({"kind":"song","trackName":"T","artistName":"A","collectionName":"C"})";
        QTest::newRow("alone") << QByteArray(R"({"resultCount":1,"results":[)" + song + "]}");
        QTest::newRow("after an album")
            << QByteArray(R"({"results":[{"wrapperType":"collection"},)" + song + "]}");
        QTest::newRow("after another kind")
            << QByteArray(R"({"results":[{"kind":"music-video","trackName":"V"},{"kind":7},)" + song + "]}");
        QTest::newRow("before others")
            << QByteArray(R"({"results":[)" + song + R"(,{"kind":"song","trackName":"U"}]})");
    }
    void findsTheFirstSong()
    {
        QFETCH(QByteArray, reply);
        QCOMPARE(catalogSongInReply(reply),
                 std::optional(CatalogSong{QStringLiteral("T"), QStringLiteral("A"), QStringLiteral("C")}));
    }

    void refusesAnythingElse_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a page") << QByteArray("<html>Not found</html>");
        QTest::newRow("half") << QByteArray(R"({"results":[{"kind":"song")");
        QTest::newRow("a text") << QByteArray(R"("song")");
        QTest::newRow("a list") << QByteArray(
            R"([{"kind":"song","trackName":"T","artistName":"A","collectionName":"C"}])");
        QTest::newRow("an empty object") << QByteArray("{}");
        QTest::newRow("no results") << QByteArray(R"({"resultCount":1})");
        QTest::newRow("results of a wrong type") << QByteArray(R"({"results":{"kind":"song"}})");
        QTest::newRow("empty results") << QByteArray(R"({"results":[]})");
        QTest::newRow("one result is no object") << QByteArray(
            R"({"results":[{"kind":"song","trackName":"T","artistName":"A","collectionName":"C"},1]})");
        QTest::newRow("no song") << QByteArray(R"({"results":[{"kind":"Song"},{"kind":"album"},{}]})");
        QTest::newRow("no title") << QByteArray(
            R"({"results":[{"kind":"song","artistName":"A","collectionName":"C"}]})");
        QTest::newRow("artist is null") << QByteArray(
            R"({"results":[{"kind":"song","trackName":"T","artistName":null,"collectionName":"C"}]})");
        QTest::newRow("album is a number, though a later song is whole") << QByteArray(
            R"({"results":[{"kind":"song","trackName":"T","artistName":"A","collectionName":1},)"
            R"({"kind":"song","trackName":"T","artistName":"A","collectionName":"C"}]})");
        QTest::newRow("very deep") << QByteArray(QByteArray(2'000, '[') + QByteArray(2'000, ']'));
        QTest::newRow("no UTF-8") << QByteArray(
            "{\"results\":[{\"kind\":\"song\",\"trackName\":\"\xff\xfe\"}]}");
    }
    void refusesAnythingElse()
    {
        QFETCH(QByteArray, reply);
        QVERIFY(!catalogSongInReply(reply));
    }
};

QTEST_GUILESS_MAIN(tst_CatalogReply)
#include "tst_CatalogReply.moc"
