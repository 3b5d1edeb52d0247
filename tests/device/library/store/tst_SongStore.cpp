// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QSignalSpy>

class tst_SongStore : public QObject
{
    Q_OBJECT

private:
    static QString titles(LibraryFixture &fixture)
    {
        const LibraryBrowser &browser = fixture.library().browser();
        QStringList titles;
        for (const SongRow &row : browser.songRows(browser.songs({}).songs))
            titles << row.title;
        return titles.join(u'|');
    }

private Q_SLOTS:
    void listsInOrderWithLetters()
    {
        LibraryFixture fixture;
        for (const auto &title : {u"Zoo"_s, u"élan"_s, u"Apple"_s, u"42"_s, u"apple pie"_s})
            fixture.add(title, u"Ann"_s, u"Album of Ann"_s);
        fixture.add(u"Echo"_s, u"Bob"_s);
        const LibraryBrowser &browser = fixture.library().browser();
        const SongIndex index = browser.songs({});
        QCOMPARE(titles(fixture), u"42|Apple|apple pie|Echo|élan|Zoo"_s);
        QCOMPARE(index.sections,
                 (std::vector<SectionStart>{{u"#"_s, 0}, {u"A"_s, 1}, {u"E"_s, 3}, {u"Z"_s, 5}}));
        QCOMPARE(browser.songCount(), 6);

        const GroupIndex artists = browser.artists();
        const auto rows = browser.artistRows(artists.groups);
        QCOMPARE(rows.size(), 2U);
        QCOMPARE(rows.front().name, u"Ann"_s);
        QCOMPARE(rows.front().songCount, 5);
        QCOMPARE(browser.songs({SongScope::Kind::OfArtist, artists.groups[1], {}}).songs.size(), 1U);
        const auto albums = browser.albumRows(browser.albums().groups);
        QCOMPARE(albums.size(), 1U);
        QCOMPARE(albums.front().artist, u"Ann"_s);
        QCOMPARE(browser.songs({SongScope::Kind::RecentlyAdded, {}, {}}).songs.front(), index.songs[3]);
    }

    void sortsAnewOnlyForAWindow()
    {
        LibraryFixture fixture;
        const auto opened = [&](const std::optional<QByteArray> &locale) {
            return *SongStore::open(fixture.databasePath(), locale);
        };
        QVERIFY(!opened("en")->isSortedOtherwise()); // nothing to sort yet
        fixture.add({.title = u"Zoo"_s});
        fixture.add({.title = u"Äpple"_s});
        fixture.add({.title = u"Young"_s, .titleSort = u"ZZ"_s});
        fixture.add(SongTags()); // its file is "4.flac"
        QCOMPARE(titles(fixture), u"4|Äpple|Zoo|Young"_s);
        QVERIFY(!opened({})->isSortedOtherwise());
        QVERIFY(!opened("en_GB")->isSortedOtherwise());

        const auto swedish = opened("sv_SE");
        QVERIFY(swedish->isSortedOtherwise());
        std::stop_source stop;
        stop.request_stop();
        QVERIFY(swedish->renewSortKeys(stop.get_token()));
        QCOMPARE(titles(fixture), u"4|Äpple|Zoo|Young"_s);
        QVERIFY(opened("sv_SE")->isSortedOtherwise());
        QVERIFY(swedish->renewSortKeys({}));
        QCOMPARE(titles(fixture), u"4|Zoo|Young|Äpple"_s);
        QVERIFY(!opened("sv_SE")->isSortedOtherwise());

        // What the command line adds is sorted as the rest is.
        const ScannedSong song{{"/music", "Öl.flac"}, {{1, 99}, 1, 1}, {}};
        QVERIFY(opened({})->write(std::span(&song, 1), {}, {}));
        QCOMPARE(titles(fixture), u"4|Zoo|Young|Äpple|Öl"_s);

        QSettings settings(fixture.path(u"device.ini"_s), QSettings::IniFormat);
        const auto window = *LinuxLibrary::open(fixture.library().configuration(), settings, Sorting::OfUser);
        QSignalSpy sorted(&window->mediaLibrary(), &MediaLibrary::libraryDidChange);
        QTRY_COMPARE(sorted.size(), 1);
        QCOMPARE(titles(fixture), u"4|Äpple|Öl|Zoo|Young"_s);
    }

    void sortsArtistsAndAlbumsAsTheirTagsSay()
    {
        LibraryFixture fixture;
        using Names = std::pair<QString, std::optional<QString>>;
        for (const auto &[name, sortName] :
             {Names{u"Zero"_s, {}}, Names{u"Zero"_s, u"Aero"_s}, Names{u"Middle"_s, {}}})
            fixture.add(
                {.artists = {name}, .albumTitle = name, .artistSort = sortName, .albumSort = sortName});
        const LibraryBrowser &browser = fixture.library().browser();
        QCOMPARE(browser.artistRows(browser.artists().groups).front().name, u"Zero"_s);
        QCOMPARE(browser.albumRows(browser.albums().groups).front().name, u"Zero"_s);
        QCOMPARE(browser.albums().sections.front().label, u"A"_s);
    }

    void refusesForeignAndNewerDatabases()
    {
        LibraryFixture fixture;
        const QString file = fixture.path(u"other"_s);
        const QByteArray path = QFile::encodeName(file);
        const auto execute = [&](const char *sql) {
            sqlite::Connection(path, sqlite::Access::ReadWrite).execute(sql);
        };
        writeFile(file, "this is not a database\n"_ba.repeated(100));
        QCOMPARE(SongStore::open(path).failure().kind, FailureKind::Malformed);
        QVERIFY(QFile::remove(file));
        execute("CREATE TABLE bookmarks (url TEXT)");
        QCOMPARE(SongStore::open(path).failure().kind, FailureKind::Malformed);
        QVERIFY(QFile::remove(file));
        QVERIFY(SongStore::open(path));
        execute("PRAGMA user_version = 9999");
        QCOMPARE(SongStore::open(path).failure().kind, FailureKind::Unsupported);
    }
};

QTEST_GUILESS_MAIN(tst_SongStore)
#include "tst_SongStore.moc"
