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
        const std::vector<PersistentID> songs = *fixture.library().search(typed, 50);
        for (const PersistentID id : songs)
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
        fixture.add(QStringLiteral("Also"), QStringLiteral("The Fire"));
        fixture.add(QStringLiteral("Not Them"), QStringLiteral("Fire Men"));
        fixture.add(QStringLiteral("Ring of Fire"), QStringLiteral("Someone"));
        fixture.add(QStringLiteral("Fireworks"), QStringLiteral("Someone"));
        fixture.add(QStringLiteral("Fire"), QStringLiteral("Someone"));
        QCOMPARE(titles(fixture, QStringLiteral("fire")).join(u'|'),
                 QStringLiteral("Also|Fire|By Them|Fireworks|Ring of Fire|Not Them|Elsewhere"));
    }

    void findsTheArtistBehindThousands()
    {
        LibraryFixture fixture;
        std::vector<ScannedSong> songs;
        for (int i = 1; i <= 1500; ++i) {
            ScannedSong song{{"/music", QByteArray::number(i)}, {{1, std::uint64_t(i)}, 1, 1}, {}};
            song.tags.title = QStringLiteral("Snow");
            song.tags.artists = {QStringLiteral("Fire Nr. %1").arg(i)};
            song.tags.audioHash = std::uint64_t(i);
            songs.push_back(song);
        }
        songs.back().tags.title = QStringLiteral("Theirs");
        songs.back().tags.artists = {QStringLiteral("Someone"), QStringLiteral("F!re")};
        QVERIFY(fixture.store().write(songs, {}, {}));
        fixture.index();
        QCOMPARE(titles(fixture, QStringLiteral("fire")).front(), QStringLiteral("Theirs"));
    }

    void findsNamesAsPeopleTypeThem_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("found");
        const auto row = [](const char *typed, const char *found) {
            QTest::newRow(typed) << QString::fromUtf8(typed) << QString::fromUtf8(found);
        };
        row("orchidee", "L'Orchidée");
        row("l'orch", "L'Orchidée");
        row("lorchidee", "L'Orchidée");
        row("etoiles", "Mer d’Étoiles");
        row("Étoiles", "Mer d’Étoiles");
        row("bog", "B.O.G.");
        row("b.o.g", "B.O.G.");
        row("ki.lo", "KILO");
        row("xy/zz", "XY-ZZ");
        row("xyzz", "XY-ZZ");
        row("brick", "Br!ck");
        row("BR!CK", "Br!ck");
        row("moniker", "$ophie Mon!ker");
        row("sophie", "$ophie Mon!ker");
        row("moss and fern", "Moss & Fern|Moss 'n' Fern");
        row("moss & fern", "Moss & Fern|Moss 'n' Fern");
        row("moss n", "Moss & Fern|Moss 'n' Fern");
        row("moss'n'fern", "Moss & Fern|Moss 'n' Fern");
        row("احمد", "أحمد");
        row("أحمد", "أحمد");
        row("ほし", "ホシ");
        row("ﾎｼ", "ホシ");
        row("there", ""); // the beginning of "The Red Kites", had it no blank
        row("theredkites", "The Red Kites");
        row("red kites", "The Red Kites");
        row("re", "The Red Kites");
        row("rchidee", "");
        row("\xef\xb7\x90", "");
    }
    void findsNamesAsPeopleTypeThem()
    {
        static LibraryFixture fixture;
        if (fixture.library().status()->available == 0) {
            for (const char *name :
                 {"L'Orchidée", "Mer d’Étoiles", "B.O.G.", "KILO", "XY-ZZ", "Br!ck", "$ophie Mon!ker",
                  "Moss & Fern", "Moss 'n' Fern", "أحمد", "ホシ", "The Red Kites"})
                fixture.add({}, QString::fromUtf8(name));
        }
        QFETCH(QString, typed);
        QFETCH(QString, found);
        QStringList artists;
        const std::vector<PersistentID> songs = *fixture.library().search(typed, 50);
        for (const PersistentID id : songs)
            artists << *fixture.library().song(id)->item.artist;
        artists.sort();
        QCOMPARE(artists.join(u'|'), found);
    }

    void renewsWhatAnEarlierVersionWrote()
    {
        LibraryFixture fixture;
        fixture.add(QStringLiteral("O.N.E."), QStringLiteral("Some"));
        fixture.add(QStringLiteral("T.W.O."), QStringLiteral("Some"));
        fixture.add(SongTags());
        sqlite::Connection connection(fixture.databasePath(), sqlite::Access::ReadWrite);
        connection.execute(
            "UPDATE search_texts SET title = 'old', artist = 'some'; UPDATE artists SET name = ' Some ';"
            "INSERT INTO search_index (search_index) VALUES ('rebuild');"
            "ALTER TABLE songs DROP COLUMN sort_text; ALTER TABLE albums DROP COLUMN sort_text;"
            "ALTER TABLE artists DROP COLUMN sort_text;"
            "DELETE FROM settings WHERE name = 'texts_to_renew'; PRAGMA user_version = 2;");
        const auto store = *SongStore::open(fixture.databasePath());
        QCOMPARE(fixture.library().browser().artistRows(fixture.library().browser().artists().groups)[0].name,
                 QStringLiteral("Some"));
        QVERIFY(*store->renewNext(1));
        QCOMPARE(titles(fixture, QStringLiteral("old")),
                 (QStringList{QStringLiteral("O.N.E."), QStringLiteral("T.W.O.")}));
        QCOMPARE(titles(fixture, QStringLiteral("3")), QStringList(QStringLiteral("--")));
        QVERIFY(!*store->renewNext(3));
        QCOMPARE(titles(fixture, QStringLiteral("old")), QStringList());
        QCOMPARE(titles(fixture, QStringLiteral("two")), QStringList(QStringLiteral("T.W.O.")));
        QVERIFY(!*store->renewNext(3));
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
