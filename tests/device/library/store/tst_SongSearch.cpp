// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "support/Test.h"

class tst_SongSearch : public QObject
{
    Q_OBJECT

private:
    static QStringList titles(LibraryFixture &fixture, const QString &typed)
    {
        QStringList found;
        const std::vector<PersistentID> songs = *fixture.library().search(typed, 50);
        for (const PersistentID id : songs) {
            const MediaItem item = fixture.library().song(id)->item;
            const QString title = item.title.value_or(QString());
            found << (title.isEmpty() ? item.artist.value_or(u"--"_s) : title);
        }
        return found;
    }

private Q_SLOTS:
    void findsWordsInAnyFieldAndOrder()
    {
        LibraryFixture fixture;
        const QString title = u"Smörgåsbord Don't Olé"_s;
        fixture.add({.title = title,
                     .artists = {u"Björk"_s},
                     .albumTitle = u"Łódź (Live)"_s,
                     .albumArtist = u"私の東京タワー"_s,
                     .composer = u"Мой"_s});
        fixture.add(u"Other"_s, u"Nobody"_s);
        for (const auto &typed : {u"smorgas"_s, u"OLE smör"_s, u"bjork SMORGASBORD"_s, u"live"_s, u"lodz"_s,
                                  u"мой"_s, u"東京"_s, u"京"_s, u"dont"_s})
            QCOMPARE(titles(fixture, typed), QStringList(title));
        for (const auto &typed : {u"мои"_s, u"orgas"_s, u"京東"_s, u"smorgas zzz"_s})
            QCOMPARE(titles(fixture, typed), QStringList());
    }

    void putsTheBestFirst()
    {
        LibraryFixture fixture;
        fixture.add(u"Elsewhere"_s, u"Someone"_s, u"Fire"_s);
        fixture.add(u"By Them"_s, u"Fire"_s);
        fixture.add(u"Also"_s, u"The Fire"_s);
        fixture.add(u"Not Them"_s, u"Fire Men"_s);
        fixture.add(u"Ring of Fire"_s, u"Someone"_s);
        fixture.add(u"Fireworks"_s, u"Someone"_s);
        fixture.add(u"Fire"_s, u"Someone"_s);
        QCOMPARE(titles(fixture, u"fire"_s).join(u'|'),
                 u"By Them|Fire|Also|Fireworks|Ring of Fire|Not Them|Elsewhere"_s);
    }

    void findsTheArtistBehindThousands()
    {
        LibraryFixture fixture;
        std::vector<ScannedSong> songs;
        for (int i = 1; i <= 1500; ++i) {
            const std::uint64_t number(i);
            songs.push_back(
                {{"/music", QByteArray::number(i)},
                 {{1, number}, 1, 1},
                 {.title = u"Snow"_s, .artists = {u"Fire Nr. %1"_s.arg(i)}, .audioHash = number}});
        }
        songs.back().tags.title = u"Theirs"_s;
        songs.back().tags.artists = {u"Someone"_s, u"F!re"_s};
        QVERIFY(fixture.store().write(songs, {}, {}));
        fixture.index();
        QCOMPARE(titles(fixture, u"fire"_s).front(), u"Theirs"_s);
    }

    void findsNamesAsPeopleTypeThem()
    {
        LibraryFixture fixture;
        for (const auto &name : {u"L'Orchidée"_s, u"Mer d’Étoiles"_s, u"B.O.G."_s, u"KILO"_s, u"XY-ZZ"_s,
                                 u"Br!ck"_s, u"$ophie Mon!ker"_s, u"Moss & Fern"_s, u"Moss 'n' Fern"_s,
                                 u"أحمد"_s, u"ホシ"_s, u"The Red Kites"_s})
            fixture.add({}, name);
        for (const auto &title : {u"???"_s, u"💔"_s})
            fixture.add(title, {});
        const std::pair<QStringList, QString> rows[]{
            {{u"orchidee"_s, u"l'orch"_s, u"lorchidee"_s}, u"L'Orchidée"_s},
            {{u"etoiles"_s, u"Étoiles"_s}, u"Mer d’Étoiles"_s},
            {{u"bog"_s, u"b.o.g"_s}, u"B.O.G."_s},
            {{u"ki.lo"_s}, u"KILO"_s},
            {{u"xy/zz"_s, u"xyzz"_s}, u"XY-ZZ"_s},
            {{u"brick"_s, u"BR!CK"_s}, u"Br!ck"_s},
            {{u"moniker"_s, u"sophie"_s}, u"$ophie Mon!ker"_s},
            {{u"moss and fern"_s, u"moss & fern"_s, u"moss n"_s, u"moss'n'fern"_s},
             u"Moss & Fern|Moss 'n' Fern"_s},
            {{u"احمد"_s, u"أحمد"_s}, u"أحمد"_s},
            {{u"ほし"_s, u"ﾎｼ"_s}, u"ホシ"_s},
            {{u"there"_s, u"rchidee"_s, u"\ufdd0"_s},
             u""_s}, // "there": the beginning of "The Red Kites", had it no blank
            {{u"??"_s, u"???"_s}, u"???"_s},
            {{u"💔"_s}, u"💔"_s},
            {{u"theredkites"_s, u"red kites"_s, u"re"_s}, u"The Red Kites"_s}};
        for (const auto &[typed, found] : rows) {
            for (const QString &words : typed)
                QCOMPARE(words + u": "_s + titles(fixture, words).join(u'|'), words + u": "_s + found);
        }
    }

    void renewsWhatAnEarlierVersionWrote()
    {
        LibraryFixture fixture;
        fixture.add(u"O.N.E."_s, u"Some"_s);
        fixture.add(u"T.W.O."_s, u"Some"_s);
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
                 u"Some"_s);
        QVERIFY(*store->renewNext(1));
        QCOMPARE(titles(fixture, u"old"_s), (QStringList{u"O.N.E."_s, u"T.W.O."_s}));
        QCOMPARE(titles(fixture, u"3"_s), QStringList(u"--"_s));
        QVERIFY(!*store->renewNext(3));
        QCOMPARE(titles(fixture, u"old"_s), QStringList());
        QCOMPARE(titles(fixture, u"two"_s), QStringList(u"T.W.O."_s));
        QVERIFY(!*store->renewNext(3));
    }

    void toleratesAnything()
    {
        LibraryFixture fixture;
        fixture.add(u"Song"_s, u"Artist"_s);
        for (const QString &typed :
             {u"\"' OR \"\""_s, u"NEAR(a b) AND NOT title : x* ^ - + {a}"_s, u"'; DROP TABLE songs;--"_s,
              u"👩‍🎤🏳️‍🌈"_s, QString(10'000, u'a'), u"q "_s.repeated(5000),
              QString(QChar(0xd800)) + QChar(0) + u"x"_s, u"   "_s, u"%_*?"_s})
            QCOMPARE(titles(fixture, typed), QStringList());
        QCOMPARE(titles(fixture, u"song"_s), QStringList(u"Song"_s));
    }

    void followsChangesOfASong()
    {
        LibraryFixture fixture;
        ScannedSong song{{"/music", "a.mp3"}, {{1, 9}, 1, 1}, {.title = u"Before"_s, .audioHash = 77}};
        QVERIFY(fixture.store().write(std::span(&song, 1), {}, {}));
        QCOMPARE(titles(fixture, u"bef"_s),
                 QStringList(u"Before"_s)); // not indexed yet
        fixture.index();
        song.tags.title = u"After"_s;
        QVERIFY(fixture.store().write(std::span(&song, 1), {}, {}));
        QCOMPARE(titles(fixture, u"bef"_s), QStringList());
        QCOMPARE(titles(fixture, u"aft"_s), QStringList(u"After"_s));

        const SongPlace elsewhere{SongRowID{1}, 1, "b.mp3"};
        QVERIFY(fixture.store().setAvailability(std::span(&elsewhere, 1), Availability::FileGone));
        QCOMPARE(titles(fixture, u"aft"_s), QStringList(u"After"_s));
        const SongPlace place{SongRowID{1}, 1, "a.mp3"};
        QVERIFY(fixture.store().setAvailability(std::span(&place, 1), Availability::FileGone));
        QCOMPARE(titles(fixture, u"aft"_s), QStringList());
        QVERIFY(fixture.store().write(std::span(&song, 1), {}, {}));
        QCOMPARE(titles(fixture, u"aft"_s), QStringList(u"After"_s));
    }
};

QTEST_GUILESS_MAIN(tst_SongSearch)
#include "tst_SongSearch.moc"
