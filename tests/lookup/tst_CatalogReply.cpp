// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/CatalogReply.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

class tst_CatalogReply : public QObject
{
    Q_OBJECT

    const QByteArray m_song = R"({"kind":"song","trackName":"T","artistName":"A","collectionName":"C"})";

private Q_SLOTS:
    void findsTheFirstSong()
    {
        for (const QByteArray &results : {m_song, R"({"wrapperType":"collection"},)" + m_song,
                                          R"({"kind":"music-video","trackName":"V"},{"kind":7},)" + m_song,
                                          m_song + R"(,{"kind":"song","trackName":"U"})"})
            QVERIFY2(catalogSongInReply(R"({"resultCount":1,"results":[)" + results + "]}") ==
                         std::optional(CatalogSong{u"T"_s, u"A"_s, u"C"_s}),
                     results);
    }

    void refusesAnythingElse()
    {
        const auto results = [](const QByteArray &songs) { return R"({"results":[)" + songs + "]}"; };
        for (const QByteArray &reply :
             {""_ba, "<html>Not found</html>"_ba, results(m_song).chopped(1), R"("song")"_ba,
              '[' + m_song + ']', "{}"_ba, R"({"resultCount":1})"_ba, R"({"results":)" + m_song + '}',
              results({}), results(m_song + ",1"), results(R"({"kind":"Song"},{"kind":"album"},{})"),
              results(R"({"kind":"song","artistName":"A","collectionName":"C"})"),
              results(R"({"kind":"song","trackName":"T","artistName":null,"collectionName":"C"})"),
              results(R"({"kind":"song","trackName":"T","artistName":"A","collectionName":1},)" + m_song),
              "["_ba.repeated(2'000) + "]"_ba.repeated(2'000),
              results("{\"kind\":\"song\",\"trackName\":\"\xff\xfe\"}")})
            QVERIFY2(!catalogSongInReply(reply), reply);
    }
};

QTEST_GUILESS_MAIN(tst_CatalogReply)
#include "tst_CatalogReply.moc"
