// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/LibraryFixture.h"

#include <QTest>

using namespace trackwise;

class tst_SongSearch : public QObject
{
    Q_OBJECT

private:
    static QStringList titles(LibraryFixture &fixture, const QString &typed)
    {
        QStringList found;
        for (const PersistentID id : *fixture.library().search(typed, 50))
            found << fixture.library().song(id)->item.title.value_or(QStringLiteral("--"));
        return found;
    }

private Q_SLOTS:
    void findsWordsInAnyFieldAndOrder_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("found");
        const auto row = [](const char *typed, bool found) {
            QTest::newRow(typed) << QString::fromUtf8(typed) << found;
        };
        row("smorgas", true);
        row("OLE smör", true);
        row("bjork SMORGASBORD", true);
        row("live", true);
        row("lodz", true);
        row("мой", true);
        row("мои", false);
        row("orgas", false); // inside a word
        row("東京", true);
        row("京", true);
        row("京東", false); // other order
        row("smorgas zzz", false);
        row("dont", true);
    }
    void findsWordsInAnyFieldAndOrder()
    {
        static LibraryFixture fixture;
        if (fixture.library().status()->available == 0) {
            SongTags tags;
            tags.title = QStringLiteral("Smörgåsbord Don't Olé");
            tags.artists = {QStringLiteral("Björk")};
            tags.albumTitle = QStringLiteral("Łódź (Live)");
            tags.albumArtist = QStringLiteral("私の東京タワー");
            tags.composer = QStringLiteral("Мой");
            fixture.add(tags);
            fixture.add(QStringLiteral("Other"), QStringLiteral("Nobody"));
        }
        QFETCH(QString, typed);
        QTEST(titles(fixture, typed).contains(QStringLiteral("Smörgåsbord Don't Olé")), "found");
        QVERIFY(!titles(fixture, typed).contains(QStringLiteral("Other")));
    }

    void putsTheBestFirst()
    {
        LibraryFixture fixture;
        fixture.add(QStringLiteral("Elsewhere"), QStringLiteral("Someone"), QStringLiteral("Fire"));
        fixture.add(QStringLiteral("By Them"), QStringLiteral("Fire"));
        fixture.add(QStringLiteral("Ring of Fire"), QStringLiteral("Someone"));
        fixture.add(QStringLiteral("Fireworks"), QStringLiteral("Someone"));
        fixture.add(QStringLiteral("Fire"), QStringLiteral("Someone"));
        QCOMPARE(titles(fixture, QStringLiteral("fire")).join(u'|'),
                 QStringLiteral("Fire|Fireworks|Ring of Fire|By Them|Elsewhere"));
    }

    void toleratesAnything_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("quotes") << QStringLiteral("\"' OR \"\"");
        QTest::newRow("operators") << QStringLiteral("NEAR(a b) AND NOT title : x* ^ - + {a}");
        QTest::newRow("statement") << QStringLiteral("'; DROP TABLE songs;--");
        QTest::newRow("emoji") << QStringLiteral("👩‍🎤🏳️‍🌈");
        QTest::newRow("long") << QString(10'000, u'a');
        QTest::newRow("many words") << QStringLiteral("q ").repeated(5000);
        QTest::newRow("lone surrogate and zero") << QString(QChar(0xd800)) + QChar(0) + QStringLiteral("x");
        QTest::newRow("blank") << QStringLiteral("   ");
        QTest::newRow("wildcards") << QStringLiteral("%_*?");
    }
    void toleratesAnything()
    {
        QFETCH(QString, typed);
        LibraryFixture fixture;
        fixture.add(QStringLiteral("Song"), QStringLiteral("Artist"));
        QCOMPARE(titles(fixture, typed), QStringList());
        QCOMPARE(titles(fixture, QStringLiteral("song")), QStringList(QStringLiteral("Song")));
    }

    void findsTitlesOfSymbolsAlone()
    {
        LibraryFixture fixture;
        fixture.add(QStringLiteral("???"), QStringLiteral("Artist"));
        fixture.add(QStringLiteral("💔"), QStringLiteral("Artist"));
        QCOMPARE(titles(fixture, QStringLiteral("??")), QStringList(QStringLiteral("???")));
        QCOMPARE(titles(fixture, QStringLiteral("💔")), QStringList(QStringLiteral("💔")));
    }

    void followsChangesOfASong()
    {
        LibraryFixture fixture;
        SongTags tags;
        tags.title = QStringLiteral("Before");
        tags.audioHash = 77;
        ScannedSong song{{"/music", "a.mp3"}, {{1, 9}, 1, 1}, tags};
        QVERIFY(fixture.store().write(std::span(&song, 1), {}, {}));
        QCOMPARE(titles(fixture, QStringLiteral("bef")),
                 QStringList(QStringLiteral("Before"))); // not indexed yet
        fixture.index();
        song.tags.title = QStringLiteral("After");
        QVERIFY(fixture.store().write(std::span(&song, 1), {}, {}));
        QCOMPARE(titles(fixture, QStringLiteral("bef")), QStringList());
        QCOMPARE(titles(fixture, QStringLiteral("aft")), QStringList(QStringLiteral("After")));

        const SongPlace elsewhere{SongRowID{1}, 1, "b.mp3"};
        QVERIFY(fixture.store().setAvailability(std::span(&elsewhere, 1), Availability::FileGone));
        QCOMPARE(titles(fixture, QStringLiteral("aft")), QStringList(QStringLiteral("After")));
        const SongPlace place{SongRowID{1}, 1, "a.mp3"};
        QVERIFY(fixture.store().setAvailability(std::span(&place, 1), Availability::FileGone));
        QCOMPARE(titles(fixture, QStringLiteral("aft")), QStringList());
        QVERIFY(fixture.store().write(std::span(&song, 1), {}, {}));
        QCOMPARE(titles(fixture, QStringLiteral("aft")), QStringList(QStringLiteral("After")));
    }
};

QTEST_GUILESS_MAIN(tst_SongSearch)
#include "tst_SongSearch.moc"
