// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/LibraryFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <set>

using namespace trackwise;
using namespace std::chrono_literals;

class tst_SongStore : public QObject
{
    Q_OBJECT

private:
    static SongTags everything()
    {
        SongTags tags;
        tags.title = QStringLiteral("Title <b>");
        tags.artists = {QStringLiteral("One"), QStringLiteral("Two")};
        tags.albumTitle = QStringLiteral("Album");
        tags.albumArtist = QStringLiteral("Album Artist");
        tags.composer = QStringLiteral("Composer");
        tags.genres = {QStringLiteral("Rock")};
        tags.grouping = QStringLiteral("Grouping");
        tags.comments = QStringLiteral("Line\nLine");
        tags.lyrics = QStringLiteral("La la");
        tags.releaseDate = PartialDate::fromText(QStringLiteral("2021-03"));
        tags.durationSeconds = 61.5;
        tags.ratingPercent = 70;
        tags.playCount = 7;
        tags.beatsPerMinute = 128;
        tags.trackNumber = 3;
        tags.trackCount = 12;
        tags.discNumber = 1;
        tags.discCount = 2;
        tags.isCompilation = true;
        tags.advisory = Advisory::Explicit;
        tags.catalogID = QStringLiteral("1234567890");
        tags.recordingMBID = QStringLiteral("ABCDEF00-0000-4000-a000-000000000000");
        tags.artwork = {ArtworkSummary::Place::Embedded, "ignored", "0123456789abcdef"};
        return tags;
    }

private Q_SLOTS:
    void keepsEveryValue()
    {
        LibraryFixture fixture;
        const PersistentID id = fixture.add(everything());
        const MediaItem item = fixture.library().mediaLibrary().song(id).value();
        QCOMPARE(item.title, QStringLiteral("Title <b>"));
        QCOMPARE(item.artist, QStringLiteral("One, Two"));
        QCOMPARE(item.albumTitle, QStringLiteral("Album"));
        QCOMPARE(item.albumArtist, QStringLiteral("Album Artist"));
        QCOMPARE(item.composer, QStringLiteral("Composer"));
        QCOMPARE(item.genre, QStringLiteral("Rock"));
        QCOMPARE(item.userGrouping, QStringLiteral("Grouping"));
        QCOMPARE(item.comments, QStringLiteral("Line\nLine"));
        QCOMPARE(item.lyrics, QStringLiteral("La la"));
        QCOMPARE(item.releaseDate, Instant(std::chrono::sys_days(std::chrono::March / 1 / 2021))); // TZ=UTC
        QCOMPARE(item.dateAddedForReal, Instant(1s));
        QVERIFY(!item.lastPlayedDate);
        QCOMPARE(item.playbackDuration, 61.5);
        QCOMPARE(item.playCount, 7U);
        QCOMPARE(item.skipCount, 0U);
        QCOMPARE(item.rating, 4U);
        QCOMPARE(item.beatsPerMinute, 128U);
        QCOMPARE(item.albumTrackNumber, 3U);
        QCOMPARE(item.albumTrackCount, 12U);
        QCOMPARE(item.discNumber, 1U);
        QCOMPARE(item.discCount, 2U);
        QVERIFY(item.isCompilation && item.isExplicitItem);
        QCOMPARE(item.playbackStoreID, QStringLiteral("1234567890"));
        QVERIFY(item.artwork);
        QCOMPARE(item.artwork->key(), QByteArray("0123456789abcdef"));
    }

    void leavesAbsentValuesAbsent()
    {
        LibraryFixture fixture;
        const MediaItem item = fixture.library().song(fixture.add(SongTags()))->item;
        QVERIFY(!item.title && !item.artist && !item.albumTitle && !item.comments && !item.releaseDate);
        QVERIFY(item.playbackStoreID.isEmpty() && !item.artwork);
        QCOMPARE(item.rating, 0U);
        const PersistentID id = item.persistentID;
        QCOMPARE(fixture.library().browser().songRows(std::span(&id, 1)).front().title, QStringLiteral("1"));
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
        const auto text = [](const char *t) { return QString::fromUtf8(t); };
        const PersistentID first = fixture.add(text("Fire"), text("Ann"), text("One"));
        const PersistentID second = fixture.add(text("Fire"), text("Ann"), text("Two"));
        const PersistentID shouted = fixture.add(text("FIRE"), text("ANN"), text("Three"));
        fixture.add(text("Fire"), text("Bob"), text("Two"));
        const MediaLibrary &library = fixture.library().mediaLibrary();
        const auto ids = [&](const SongQuery &query) {
            std::vector<PersistentID> found;
            for (const MediaItem &item : library.songs(query, 10))
                found.push_back(item.persistentID);
            return found;
        };
        QCOMPARE(ids({text("Fire"), text("Ann"), {}}), (std::vector{first, second}));
        QCOMPARE(ids({text("Fire"), text("Ann"), text("Two")}), std::vector{second});
        QCOMPARE(ids({text("Fire"), {}, text("Two")}).size(), 2U);
        QCOMPARE(ids({text("fire"), text("Ann"), {}}), std::vector<PersistentID>());
        QCOMPARE(ids({{}, text("Bob"), {}}).size(), 1U);
        QCOMPARE(library.songIgnoringCase(text("fIRE"), text("aNN"))->persistentID, first);
        QCOMPARE(library.songIgnoringCase(text("FIRE"), text("ANN"))->persistentID, first);
        QVERIFY(!library.songIgnoringCase(text("Fíre"), text("Ann")));
        QVERIFY(shouted.isInLibrary());
    }

    void matchesWhatOtherPlayersSay()
    {
        LibraryFixture fixture;
        const PersistentID id = fixture.add(everything());
        const SongMatching &matching = fixture.library().matching();
        QCOMPARE(matching.idOfPath("/music/1.flac"), id);
        QCOMPARE(matching.idOfFile({1, 1}), id);
        QCOMPARE(matching.idOfCatalogID(QStringLiteral("1234567890")), id);
        QCOMPARE(matching.idOfMusicBrainzID(QStringLiteral("abcdef00-0000-4000-A000-000000000000")), id);
        QCOMPARE(matching.songsTitled(QStringLiteral("title <b>"), 5).size(), 1U);
        QCOMPARE(matching.songsTitled(QStringLiteral("title b"), 5).size(), 0U);
        const auto prefixed = matching.songsWithTitlePrefix(QStringLiteral("tit"), 5);
        QCOMPARE(prefixed.size(), 1U);
        QCOMPARE(prefixed.front().foldedArtist, QStringLiteral("one, two"));
        QCOMPARE(prefixed.front().length, 61500ms);
        QVERIFY(!matching.idOfPath("/music/other.flac"));
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
        const auto text = [](const char *t) { return QString::fromUtf8(t); };
        const auto first = [](const std::vector<MediaItem> &items) {
            return items.empty() ? std::nullopt : std::optional(items.front());
        };
        const auto answers = [&] {
            std::set<PersistentID> given;
            for (const std::optional<MediaItem> &item :
                 {first(library.songs({text("Title <b>"), text("One, Two"), {}}, 9)),
                  first(library.songs({text("Title <b>"), {}, text("Album")}, 9)),
                  first(library.songs({text("Title <b>"), {}, {}}, 9)),
                  first(library.songs({{}, {}, text("Album")}, 9)),
                  library.songIgnoringCase(text("TITLE <B>"), text("ONE, TWO")),
                  library.songWithCatalogID(text("1234567890"))})
                given.insert(item ? item->persistentID : PersistentID{});
            given.insert(matching.idOfCatalogID(text("1234567890")).value_or(PersistentID{}));
            given.insert(matching.idOfMusicBrainzID(text("abcdef00-0000-4000-a000-000000000000"))
                             .value_or(PersistentID{}));
            return given;
        };
        using Answers = std::set<PersistentID>;
        QCOMPARE(answers(), Answers{ids[0]});
        set(1, Availability::DiskAbsent);
        set(2, Availability::FileGone);
        QCOMPARE(answers(), Answers{ids[2]}); // it is there
        QCOMPARE(library.songs({text("Title <b>"), {}, {}}, 9).size(), 2U);
        set(3, Availability::FileGone);
        QCOMPARE(answers(), Answers{ids[0]}); // its disk is absent
        QCOMPARE(matching.idOfPath("/music/1.flac"), ids[0]);
        QCOMPARE(matching.idOfFile({1, 1}), ids[0]);
        set(1, Availability::FileGone);
        QCOMPARE(answers(), Answers{PersistentID{}});
        QVERIFY(!matching.idOfPath("/music/1.flac") && !matching.idOfFile({1, 1}));
        QVERIFY(library.song(ids[0]));
    }

    void listsInOrderWithLetters()
    {
        LibraryFixture fixture;
        const auto text = [](const char *t) { return QString::fromUtf8(t); };
        for (const char *title : {"Zoo", "élan", "Apple", "42", "apple pie"})
            fixture.add(text(title), text("Ann"), text("Album of Ann"));
        fixture.add(text("Echo"), text("Bob"));
        const LibraryBrowser &browser = fixture.library().browser();
        const SongIndex index = browser.songs({});
        QStringList titles;
        for (const SongRow &row : browser.songRows(index.songs))
            titles << row.title;
        QCOMPARE(titles.join(u'|'), text("42|Apple|apple pie|Echo|élan|Zoo"));
        QCOMPARE(index.sections,
                 (std::vector<SectionStart>{{text("#"), 0}, {text("A"), 1}, {text("E"), 3}, {text("Z"), 5}}));
        QCOMPARE(browser.songCount(), 6);

        const GroupIndex artists = browser.artists();
        const auto rows = browser.artistRows(artists.groups);
        QCOMPARE(rows.size(), 2U);
        QCOMPARE(rows.front().name, text("Ann"));
        QCOMPARE(rows.front().songCount, 5);
        QCOMPARE(browser.songs({SongScope::Kind::OfArtist, artists.groups[1], {}}).songs.size(), 1U);
        const auto albums = browser.albumRows(browser.albums().groups);
        QCOMPARE(albums.size(), 1U);
        QCOMPARE(albums.front().artist, text("Ann"));
        QCOMPARE(browser.songs({SongScope::Kind::RecentlyAdded, {}, {}}).songs.front(), index.songs[3]);
    }

    void sortsAnewOnlyForAWindow()
    {
        LibraryFixture fixture;
        const auto opened = [&](const std::optional<QByteArray> &locale) {
            return *SongStore::open(fixture.databasePath(), locale);
        };
        const auto order = [&] {
            QStringList titles;
            for (const SongRow &row :
                 fixture.library().browser().songRows(fixture.library().browser().songs({}).songs))
                titles << row.title;
            return titles.join(u'|');
        };
        QVERIFY(!opened("en")->isSortedOtherwise()); // nothing to sort yet
        SongTags tags;
        for (const char *title : {"Zoo", "Äpple", "Young"}) {
            tags.title = QString::fromUtf8(title);
            tags.titleSort = title[0] == 'Y' ? std::optional(QStringLiteral("ZZ")) : std::nullopt;
            fixture.add(tags);
        }
        fixture.add(SongTags()); // its file is "4.flac"
        QCOMPARE(order(), QStringLiteral("4|Äpple|Zoo|Young"));
        QVERIFY(!opened({})->isSortedOtherwise());
        QVERIFY(!opened("en_GB")->isSortedOtherwise());

        const auto swedish = opened("sv_SE");
        QVERIFY(swedish->isSortedOtherwise());
        std::stop_source stop;
        stop.request_stop();
        QVERIFY(swedish->renewSortKeys(stop.get_token()));
        QCOMPARE(order(), QStringLiteral("4|Äpple|Zoo|Young"));
        QVERIFY(opened("sv_SE")->isSortedOtherwise());
        QVERIFY(swedish->renewSortKeys({}));
        QCOMPARE(order(), QStringLiteral("4|Zoo|Young|Äpple"));
        QVERIFY(!opened("sv_SE")->isSortedOtherwise());

        // What the command line adds is sorted as the rest is.
        const ScannedSong song{{"/music", "Öl.flac"}, {{1, 99}, 1, 1}, {}};
        QVERIFY(opened({})->write(std::span(&song, 1), {}, {}));
        QCOMPARE(order(), QStringLiteral("4|Zoo|Young|Äpple|Öl"));

        QSettings settings(fixture.path(QStringLiteral("device.ini")), QSettings::IniFormat);
        const auto window = *LinuxLibrary::open(fixture.library().configuration(), settings, Sorting::OfUser);
        QSignalSpy sorted(&window->mediaLibrary(), &MediaLibrary::libraryDidChange);
        QTRY_COMPARE(sorted.size(), 1);
        QCOMPARE(order(), QStringLiteral("4|Äpple|Öl|Zoo|Young"));
    }

    void sortsArtistsAndAlbumsAsTheirTagsSay()
    {
        LibraryFixture fixture;
        for (const auto &[name, sortName] : {std::pair("Zero", ""), {"Zero", "Aero"}, {"Middle", ""}}) {
            SongTags tags;
            tags.artists = {QString::fromUtf8(name)};
            tags.albumTitle = QString::fromUtf8(name);
            if (*sortName)
                tags.artistSort = tags.albumSort = QString::fromUtf8(sortName);
            fixture.add(tags);
        }
        const LibraryBrowser &browser = fixture.library().browser();
        QCOMPARE(browser.artistRows(browser.artists().groups).front().name, QStringLiteral("Zero"));
        QCOMPARE(browser.albumRows(browser.albums().groups).front().name, QStringLiteral("Zero"));
        QCOMPARE(browser.albums().sections.front().label, QStringLiteral("A"));
    }

    void refusesForeignAndNewerDatabases()
    {
        LibraryFixture fixture;
        const auto openFile = [&](const char *name) {
            return SongStore::open(QFile::encodeName(fixture.path(QString::fromUtf8(name))));
        };
        QFile garbage(fixture.path(QStringLiteral("garbage")));
        QVERIFY(garbage.open(QIODevice::WriteOnly));
        garbage.write(QByteArray("this is not a database\n").repeated(100));
        garbage.close();
        QCOMPARE(openFile("garbage").failure().kind, FailureKind::Malformed);

        sqlite::Connection(QFile::encodeName(fixture.path(QStringLiteral("foreign"))),
                           sqlite::Access::ReadWrite)
            .execute("CREATE TABLE bookmarks (url TEXT)");
        QCOMPARE(openFile("foreign").failure().kind, FailureKind::Malformed);

        QVERIFY(openFile("newer"));
        sqlite::Connection(QFile::encodeName(fixture.path(QStringLiteral("newer"))),
                           sqlite::Access::ReadWrite)
            .execute("PRAGMA user_version = 9999");
        QCOMPARE(openFile("newer").failure().kind, FailureKind::Unsupported);
    }

    void rememberWhatTheUserAnswered()
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
        QSettings settings(fixture.path(QStringLiteral("device.ini")), QSettings::IniFormat);
        QCOMPARE(LibraryAccess(settings, {}).status(), Status::Authorized);
    }
};

QTEST_GUILESS_MAIN(tst_SongStore)
#include "tst_SongStore.moc"
