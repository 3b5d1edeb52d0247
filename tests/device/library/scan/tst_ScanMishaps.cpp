// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/library/WavFolder.h"
#include "device/library/scan/TrialReading.h"
#include "device/library/store/FileSignature.h"
#include "device/library/tags/TagReader.h"
#include "support/Test.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>

#include <csignal>
#include <map>

using Reading = LibraryScanner::TagReading;

// What happens to files, folders, the database and the program while a scan runs.
class tst_ScanMishaps : public QObject
{
    Q_OBJECT

private:
    static Result<ScanSummary> scan(SongStore &store, const WavFolder &music, Reading read,
                                    ScanScope scope = ScanScope::Changes,
                                    const std::shared_ptr<ScanMonitor> &monitor = {})
    {
        LibraryScanner scanner(store, {music.root()}, 1);
        scanner.setReading(std::move(read));
        return scanner.run({}, *(monitor ? monitor : std::make_shared<ScanMonitor>()), {scope});
    }
    static std::map<QByteArray, PersistentID> songs(LibraryFixture &fixture)
    {
        std::map<QByteArray, PersistentID> songs;
        (void)fixture.library().forEachSong([&songs](const LibrarySong &song) {
            songs[song.file.path()] = song.item.persistentID;
            return true;
        });
        return songs;
    }

    /// @p backAt 0: when the walk has ended.
    static void losesNothing(int awayAt, int backAt)
    {
        const WavFolder music;
        // More than wait to be read: the walk is under way. In folders from which it hands a rest on at its
        // end.
        for (int i = 0; i < 300; ++i)
            music.write(QByteArray::number(i / 17) + '/' + QByteArray::number(i) + ".wav", i, "Title");
        music.run("ln 0/0.wav '0/0 link.wav'");
        LibraryFixture fixture({music.root()});
        QCOMPARE(fixture.scan().songsRead, 301);
        const auto before = songs(fixture);

        const QByteArray away = music.root() + " away";
        int count = 0;
        const auto monitor = std::make_shared<ScanMonitor>();
        const Reading read = [&](const QByteArray &path, const FolderListing &folder) {
            if (++count == awayAt)
                std::rename(music.root().constData(), away.constData());
            auto tags = readTags(path, folder);
            if (count == backAt || (backAt == 0 && monitor->progress(true).isTotalKnown))
                std::rename(away.constData(), music.root().constData());
            return tags;
        };
        const auto result = scan(fixture.store(), music, read, ScanScope::Everything, monitor);
        QVERIFY(result);
        QVERIFY(count >= awayAt);
        if (backAt != 9) // else as it happens
            QCOMPARE(result->wasDisturbed, backAt == 0);
        QCOMPARE(fixture.library().status()->fileGone, 0);
        QCOMPARE(fixture.library().status()->problems, 0);

        std::rename(away.constData(), music.root().constData());
        fixture.scan();
        QCOMPARE(fixture.library().status()->available, 301);
        QCOMPARE(songs(fixture), before);
    }
    /// @p signal ends the program when it reads a file, which it is to blame for or not.
    static void endsOnce(int signal, bool isToBlame)
    {
        const WavFolder music{"bad.wav", "good.wav"};
        const QTemporaryDir folder;
        const QByteArray database = QFile::encodeName(folder.filePath(u"library.sqlite"_s));
        bool isDeadly = true;
        const Reading read = [&](const QByteArray &path, const FolderListing &listing) {
            if (isDeadly && path.endsWith("/bad.wav"))
                std::raise(signal);
            return readTags(path, listing);
        };
        const auto scanAgain = [&](ScanScope scope) {
            return *scan(**SongStore::open(database), music, read, scope);
        };
        const auto dies = [&] { (void)scanAgain(ScanScope::Changes); };
        QCOMPARE(tryInChild(dies, 60s), TrialResult::Died); // the child has no open database of ours

        isDeadly = isToBlame;
        const int failed = isToBlame ? 1 : 0;
        const ScanSummary second = scanAgain(ScanScope::Changes);
        QCOMPARE(second.filesFailed, failed);
        QCOMPARE(second.songsRead, 2 - failed);
        QCOMPARE(scanAgain(ScanScope::Changes).filesFailed, 0); // not tried again
        QCOMPARE(scanAgain(ScanScope::Everything).filesFailed, failed);
        QCOMPARE(*(*SongStore::open(database))->suspects(),
                 isToBlame ? (std::vector<FileName>{{music.root(), "bad.wav"}}) : std::vector<FileName>());
        music.write("bad.wav", 3, "Mended");
        isDeadly = false;
        QCOMPARE(scanAgain(ScanScope::Changes).songsRead, 1);
        QVERIFY((*SongStore::open(database))->suspects()->empty());
        QCOMPARE(QDir(folder.path()).entryList({u"*reading*"_s}, QDir::Files), QStringList());
    }

private Q_SLOTS:
    void losesNothingToADiskThatGoesAway()
    {
        // The numbers of the files that are being read when it goes, and when it is back.
        for (const auto &[awayAt, backAt] :
             {std::pair(3, 9), std::pair(3, 0), std::pair(3, 1000), std::pair(295, 1000)})
            losesNothing(awayAt, backAt);
    }

    void countsWhatAWalkPassesOverAsGone()
    {
        const auto home = qScopeGuard([old = qgetenv("HOME")] { qputenv("HOME", old); });
        const std::pair<const char *, const char *> rows[]{
            {"a/b/c.wav", "touch a/.nomedia"},
            {"a/b/c.wav", "touch .nomedia"},
            {".secret/s.wav", ":"}, // hidden
            {"a/x.doc", ":"},
            {"a/b/c.wav", "rm a/b/c.wav; mkdir a/b/c.wav"},
            {"way/f.wav", "mkdir ../far/me"}}; // leads to the home folder now
        for (const auto &[gone, commands] : rows) {
            const WavFolder music{"a/b/c.wav", ".secret/s.wav", "../far/f.wav", "a/x.doc"};
            qputenv("HOME", music.path("../far/me"));
            music.run("ln -s ../far way");
            LibraryFixture fixture({music.root(), music.path(".secret")});
            fixture.scan();
            ScannedSong old{{music.path("a"), "x.doc"}, *signatureAt(music.path("a/x.doc")), {}, 0};
            QVERIFY(fixture.store().write(std::span(&old, 1), {}, {}));
            const ScanProblem unreadable{
                {music.path("a"), "b"}, {}, FailureKind::Unreadable, QStringLiteral("b")};
            QVERIFY(fixture.store().write({}, std::span(&unreadable, 1), {}));
            const PersistentID id = fixture.idAt(music.path(gone));
            QVERIFY2(fixture.availability(id) == Availability::Available, gone);
            ScanPart folder;
            folder.addFolder(music.path("a"));
            ScanMonitor monitor;
            QVERIFY(LibraryScanner(fixture.store(), {music.root()}).run({}, monitor, {{}, folder}));
            QCOMPARE(fixture.library().status()->problems, 1); // it has not been looked into
            music.run(commands);
            QVERIFY(LibraryScanner(fixture.store(), {music.root()}).run({}, monitor));
            QVERIFY2(fixture.availability(id) == Availability::FileGone, gone);
            QCOMPARE(fixture.library().status()->problems, 0);
        }
    }

    void keepsNoSongThatChangesWhileItIsRead()
    {
        const WavFolder music{"a.wav"};
        LibraryFixture fixture({music.root()});
        const Reading read = [&](const QByteArray &path, const FolderListing &folder) {
            auto tags = readTags(path, folder);
            music.write("a.wav", 1, "The whole of it");
            return tags;
        };
        QCOMPARE(scan(fixture.store(), music, read)->songsRead, 0);
        QCOMPARE(fixture.scan().songsRead, 1);
    }

    void tellsWhichMusicFolderCannotBeRead()
    {
        const WavFolder music{"good/a.wav"};
        music.writeBytes("file", "not a folder");
        LibraryFixture fixture({music.path("good"), music.path("file"), music.path("nowhere")});
        for (int i = 0; i < 2; ++i) { // it is told each time
            const ScanSummary summary = fixture.scan();
            QCOMPARE(summary.unreadableMusicFolders, std::vector{music.path("file")});
            const auto problems = *fixture.library().problems();
            QCOMPARE(problems.size(), 1U);
            QCOMPARE(problems.front().file.path(), music.path("file"));
            QCOMPARE(problems.front().reason, u"The folder cannot be read: Not a directory."_s);
        }
        music.remove("file");
        music.makeFolder("file");
        QVERIFY(fixture.scan().unreadableMusicFolders.empty());
        QCOMPARE(fixture.library().status()->problems, 0);
    }

    void failsWhenItsDatabaseIsDeleted()
    {
        const WavFolder music{"a.wav"};
        LibraryFixture fixture({music.root()});
        const auto result =
            scan(fixture.store(), music, [&](const QByteArray &path, const FolderListing &folder) {
                QFile::remove(QFile::decodeName(fixture.databasePath()));
                return readTags(path, folder);
            });
        QVERIFY(!result);
        QCOMPARE(result.failure().kind, FailureKind::Unreadable);
        QVERIFY(result.failure().detail.contains(QFile::decodeName(fixture.databasePath())));
    }

    void isEndedByAFileOnce()
    {
        for (const int signal : {SIGSEGV, SIGKILL}) // a crash, or all memory taken
            endsOnce(signal, true);
        endsOnce(SIGKILL, false); // while it read a good file
    }
};

QTEST_GUILESS_MAIN(tst_ScanMishaps)
#include "tst_ScanMishaps.moc"
