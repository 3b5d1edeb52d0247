// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/library/tags/EveryTag.h"
#include "support/FullSong.h"
#include "support/Test.h"

#include <QSignalSpy>

#include <set>

class tst_LinuxMediaLibrary : public QObject
{
    Q_OBJECT

private:
    static SongTags everything()
    {
        SongTags tags = everyTag();
        tags.releaseDate = PartialDate::fromText(u"2021-03"_s);
        tags.durationSeconds = 205.9;
        tags.recordingMBID = u"ABCDEF00-0000-4000-a000-000000000000"_s;
        tags.artwork = {ArtworkSummary::Place::Embedded, "ignored", "0123456789abcdef"};
        return tags;
    }

private Q_SLOTS:
    void keepsEveryValueAndLeavesAbsentOnesAbsent()
    {
        LibraryFixture fixture;
        const PersistentID id = fixture.add(everything());
        const MediaItem item = fixture.library().mediaLibrary().song(id).value();
        QVERIFY(item.artwork && item.artwork->key() == "0123456789abcdef");
        MediaItem expected = fullSong();
        expected.persistentID = id;
        expected.releaseDate = std::chrono::sys_days(2021y / 3 / 1); // TZ=UTC
        expected.dateAddedForReal = Instant(1s);
        expected.lastPlayedDate.reset();
        expected.skipCount = 0;
        expected.artwork = item.artwork;
        QVERIFY(item == expected);

        const PersistentID bare = fixture.add(SongTags());
        QVERIFY(fixture.library().song(bare)->item ==
                (MediaItem{.dateAddedForReal = Instant(2s), .persistentID = bare}));
        QCOMPARE(fixture.library().browser().songRows(std::span(&bare, 1)).front().title, u"2"_s);
    }

    void countsOnFromTheTags()
    {
        LibraryFixture fixture;
        MediaLibrary &library = fixture.library().mediaLibrary();
        const PersistentID id = fixture.add(everything());
        QSignalSpy changes(&library, &MediaLibrary::songDidChange);
        library.recordPlay(id, Instant(100s));
        library.recordSkip(id);
        library.recordPlay(id, Instant(50s)); // a report that comes late
        QTRY_COMPARE(changes.size(), 3);
        QCOMPARE(library.song(id)->playCount, 9U);
        QCOMPARE(library.song(id)->skipCount, 1U);
        QCOMPARE(library.song(id)->lastPlayedDate, Instant(100s));
        library.recordPlay(PersistentID{12345}, Instant(1s)); // unknown: ignored
    }

    void findsExactlyInOrderOfAddition()
    {
        LibraryFixture fixture;
        const PersistentID first = fixture.add(u"Fire"_s, u"Ann"_s, u"One"_s);
        const PersistentID second = fixture.add(u"Fire"_s, u"Ann"_s, u"Two"_s);
        const PersistentID shouted = fixture.add(u"FIRE"_s, u"ANN"_s, u"Three"_s);
        fixture.add(u"Fire"_s, u"Bob"_s, u"Two"_s);
        const MediaLibrary &library = fixture.library().mediaLibrary();
        const auto ids = [&](const SongQuery &query) {
            std::vector<PersistentID> found;
            for (const MediaItem &item : library.songs(query, 10))
                found.push_back(item.persistentID);
            return found;
        };
        QCOMPARE(ids({u"Fire"_s, u"Ann"_s, {}}), (std::vector{first, second}));
        QCOMPARE(ids({u"Fire"_s, u"Ann"_s, u"Two"_s}), std::vector{second});
        QCOMPARE(ids({u"Fire"_s, {}, u"Two"_s}).size(), 2U);
        QCOMPARE(ids({u"fire"_s, u"Ann"_s, {}}), std::vector<PersistentID>());
        QCOMPARE(ids({{}, u"Bob"_s, {}}).size(), 1U);
        QCOMPARE(library.songIgnoringCase(u"fIRE"_s, u"aNN"_s)->persistentID, first);
        QCOMPARE(library.songIgnoringCase(u"FIRE"_s, u"ANN"_s)->persistentID, first);
        QVERIFY(!library.songIgnoringCase(u"Fíre"_s, u"Ann"_s));
        QVERIFY(shouted.isInLibrary());
    }

    void matchesTitlesThatOtherPlayersSay()
    {
        LibraryFixture fixture;
        fixture.add(everything());
        const SongMatching &matching = fixture.library().matching();
        QCOMPARE(matching.songsTitled(u"title ✓ 夜"_s, 5).size(), 1U);
        QCOMPARE(matching.songsTitled(u"title"_s, 5).size(), 0U);
        const auto prefixed = matching.songsWithTitlePrefix(u"tit"_s, 5);
        QCOMPARE(prefixed.size(), 1U);
        QCOMPARE(prefixed.front().foldedArtist, u"first, second"_s);
        QCOMPARE(prefixed.front().length, 205900ms);
    }

    void answersWithSongsThatAreThere()
    {
        LibraryFixture fixture;
        const std::array ids{fixture.add(everything()), fixture.add(everything()), fixture.add(everything())};
        const auto set = [&](std::int64_t song, Availability availability) {
            sqlite::Connection database(fixture.databasePath(), sqlite::Access::ReadWrite);
            database.prepare("UPDATE files SET availability = ? WHERE song = ?")
                .bind(static_cast<std::int64_t>(availability))
                .bind(song)
                .run();
        };
        const MediaLibrary &library = fixture.library().mediaLibrary();
        const SongMatching &matching = fixture.library().matching();
        const QString title = *everything().title;
        const auto answers = [&] {
            std::set<PersistentID> given;
            for (const SongQuery &query : {SongQuery{title, u"First, Second"_s, {}},
                                           {title, {}, u"Album"_s},
                                           {title, {}, {}},
                                           {{}, {}, u"Album"_s}}) {
                const auto items = library.songs(query, 9);
                given.insert(items.empty() ? PersistentID{} : items.front().persistentID);
            }
            for (const auto &item : {library.songIgnoringCase(u"TÏTLE ✓ 夜"_s, u"FIRST, SECOND"_s),
                                     library.songWithCatalogID(u"1440857781"_s)})
                given.insert(item ? item->persistentID : PersistentID{});
            given.insert(matching.idOfCatalogID(u"1440857781"_s).value_or(PersistentID{}));
            given.insert(matching.idOfMusicBrainzID(u"abcdef00-0000-4000-A000-000000000000"_s)
                             .value_or(PersistentID{}));
            return given;
        };
        using Answers = std::set<PersistentID>;
        QCOMPARE(answers(), Answers{ids[0]});
        set(1, Availability::DiskAbsent);
        set(2, Availability::FileGone);
        QCOMPARE(answers(), Answers{ids[2]}); // it is there
        QCOMPARE(library.songs({title, {}, {}}, 9).size(), 2U);
        set(3, Availability::FileGone);
        QCOMPARE(answers(), Answers{ids[0]}); // its disk is absent
        QCOMPARE(matching.idOfPath("/music/1.flac"), ids[0]);
        QCOMPARE(matching.idOfFile({1, 1}), ids[0]);
        set(1, Availability::FileGone);
        QCOMPARE(answers(), Answers{PersistentID{}});
        QVERIFY(!matching.idOfPath("/music/1.flac") && !matching.idOfFile({1, 1}));
        QVERIFY(library.song(ids[0]));
    }

    void remembersWhatTheUserAnswered()
    {
        LibraryFixture fixture;
        LibraryAccess &access = fixture.library().access();
        using Status = LibraryAuthorizationStatus;
        std::vector<Status> answers;
        const auto note = [&answers](Status status) { answers.push_back(status); };
        access.request(note); // nobody to ask
        std::function<void(bool)> reply;
        int questions = 0;
        access.setQuestion([&](std::function<void(bool)> answer) {
            ++questions;
            reply = std::move(answer);
        });
        access.request(note);
        access.request(note);
        QCOMPARE(questions, 1);
        reply(true);
        access.request(note);
        QCOMPARE(answers, (std::vector{Status::NotDetermined, Status::Authorized, Status::Authorized,
                                       Status::Authorized}));
        QSettings settings(fixture.path(u"device.ini"_s), QSettings::IniFormat);
        QCOMPARE(LibraryAccess(settings, {}).status(), Status::Authorized);
    }
};

QTEST_GUILESS_MAIN(tst_LinuxMediaLibrary)
#include "tst_LinuxMediaLibrary.moc"
