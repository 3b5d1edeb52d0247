// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/library/WavFolder.h"
#include "support/Test.h"

#include <QSignalSpy>

#include <fcntl.h>
#include <sys/stat.h>

using Change = std::function<void(const WavFolder &, LibraryFixture &)>;

class tst_LibraryScanner : public QObject
{
    Q_OBJECT

private:
    /// Gives "one.wav" another title of the same length, and its old time.
    static void retagUnnoticed(const WavFolder &music, LibraryFixture &)
    {
        struct stat before = {};
        QCOMPARE(stat(music.path("one.wav").constData(), &before), 0);
        for (struct stat now = before;
             now.st_ctim.tv_nsec == before.st_ctim.tv_nsec;) { // a clock's tick later
            music.write("one.wav", 1, "Two");
            const std::array times{before.st_atim, before.st_mtim};
            QCOMPARE(utimensat(AT_FDCWD, music.path("one.wav").constData(), times.data(), 0), 0);
            QCOMPARE(stat(music.path("one.wav").constData(), &now), 0);
        }
    }

private Q_SLOTS:
    void takesMusicAndNothingElse()
    {
        const WavFolder music{
            "a.wav",          "sub/b.WAV",   "sub/Caf\xe9 \n.wav", ".hidden song.wav", "...And More/e.wav",
            ".hidden/no.wav", "quiet/no.wav"};
        music.writeBytes("quiet/.nomedia", {});
        music.write("lost+found/no.wav", 8, "No");
        music.write("no.txt", 9, "No");
        music.writeBytes("._a.wav", "AppleDouble");
        music.makeFolder("folder.wav");
        LibraryFixture fixture(music);
        QCOMPARE(fixture.available(music),
                 "...And More/e.wav .hidden song.wav a.wav sub/Caf\xe9 \n.wav sub/b.WAV"_ba);
        QCOMPARE(fixture.library().status()->problems, 0);
        music.remove("sub"); // QTemporaryDir cannot: the name is not UTF-8
    }

    void followsEachLinkOnce()
    {
        const WavFolder music{"real/a.wav"};
        const WavFolder outside{"b.wav"};
        music.run("ln -s . real/itself; ln -s real again; ln -s / everything; ln -s .. parent;"
                  "ln -s real/a.wav alias.wav; ln -s '" +
                  outside.root() + "' '0 far'; cp -P '0 far' '1 far'");
        LibraryFixture fixture({music.root(), music.path("real")});
        fixture.scan();
        QCOMPARE(fixture.available(music).replace("0 far", "1 far"), // by either link
                 "1 far/b.wav alias.wav real/a.wav"_ba);
    }

    void remembersWhatCouldNotBeRead()
    {
        const WavFolder music{"good.wav"};
        music.writeBytes("empty.mp3", {});
        music.writeBytes("garbage.flac", "no music at all "_ba.repeated(500));
        music.writeBytes("web.mp3", "<!DOCTYPE html><title>404</title>");
        music.run("mkfifo pipe.mp3; ln -s nowhere.mp3 dangling.mp3; ln -s loop.mp3 loop.mp3");
        LibraryFixture fixture({music.root()});
        const ScanSummary first = fixture.scan();
        QCOMPARE(first.songsRead, 1);
        QCOMPARE(first.filesFailed, 6);
        const auto problems = *fixture.library().problems();
        QCOMPARE(problems.size(), 6U);
        for (const ScanProblem &problem : problems)
            QVERIFY2(!problem.reason.isEmpty() && problem.file.folder == music.root(), problem.file.name);

        QCOMPARE(fixture.scan().filesFailed, 0); // not tried again
        sqlite::Connection(fixture.databasePath(), sqlite::Access::ReadWrite)
            .execute("UPDATE problems SET reader = reader - 1");
        QCOMPARE(fixture.scan().filesFailed, 6); // but by a newer reader, and once
        QCOMPARE(fixture.scan().filesFailed, 0);

        music.write("garbage.flac", 2, "Well Now"); // the content decides what it is
        music.remove("empty.mp3");
        const ScanSummary third = fixture.scan();
        QCOMPARE(third.songsRead, 1);
        QCOMPARE(fixture.library().problems()->size(), 4U);
        QCOMPARE(fixture.library().status()->available, 2);

        const PersistentID id = fixture.idAt(music.path("good.wav"));
        music.writeBytes("good.wav", "half writt"); // damaged for now
        fixture.scan();
        QCOMPARE(fixture.availability(id), Availability::FileGone);
        QCOMPARE(fixture.library().problems()->size(), 5U);
        music.write("good.wav", 1, "Good again");
        fixture.scan();
        QCOMPARE(fixture.idAt(music.path("good.wav")), id);
        QCOMPARE(fixture.availability(id), Availability::Available);
        QCOMPARE(fixture.library().problems()->size(), 4U);
    }

    void readsAgainWhatHasChanged()
    {
        const auto readAgain = [](const Change &change, ScanScope scope = ScanScope::Changes) {
            const WavFolder music{"one.wav", "else.wav"};
            music.writeBytes("one.lrc", "Old words");
            LibraryFixture fixture(music);
            change(music, fixture);
            const auto songsRead = fixture.scan(scope).songsRead;
            const MediaItem song = fixture.library().songForPath(music.path("one.wav"))->item;
            const bool isDone = fixture.scan().songsRead == 0;
            return u"%1 %2, %3"_s.arg(songsRead).arg(*song.title, song.lyrics.value_or(u"-"_s)) +
                   (isDone ? u""_s : u", and again"_s);
        };
        const auto writes = [](const char *name) {
            return [=](const WavFolder &music, LibraryFixture &) { music.writeBytes(name, "New"); };
        };
        const auto nothing = [](const WavFolder &, LibraryFixture &) {};
        const auto ages = [](const WavFolder &, LibraryFixture &fixture) {
            sqlite::Connection(fixture.databasePath(), sqlite::Access::ReadWrite)
                .execute("UPDATE files SET reader = reader - 1");
        };
        const auto silences = [](const WavFolder &music, LibraryFixture &) { music.remove("one.lrc"); };
        QCOMPARE(readAgain(nothing), u"0 one, Old words"_s);
        QCOMPARE(readAgain(nothing, ScanScope::Everything), u"2 one, Old words"_s);
        QCOMPARE(readAgain(ages), u"2 one, Old words"_s); // read by an earlier version
        QCOMPARE(readAgain(retagUnnoticed), u"1 Two, Old words"_s);
        QCOMPARE(readAgain(writes("one.lrc")), u"1 one, New"_s);
        QCOMPARE(readAgain(writes("one.LRC")), u"0 one, Old words"_s); // .lrc comes first
        QCOMPARE(readAgain(writes("else.txt")), u"1 one, Old words"_s);
        QCOMPARE(readAgain(silences), u"1 one, -"_s);
    }

    void followsTheChoiceOfMusicFolders()
    {
        const WavFolder one{"a.wav"};
        const WavFolder other{"b.wav"};
        LibraryFixture fixture({one.root()});
        fixture.library().access().setStatus(LibraryAuthorizationStatus::Authorized);
        QSignalSpy finished(&fixture.library().scan(), &ScanController::finished);
        fixture.library().setMusicFolders({one.root(), other.root()});
        QVERIFY(finished.wait());
        const PersistentID a = fixture.idAt(one.path("a.wav"));
        const PersistentID b = fixture.idAt(other.path("b.wav"));
        QVERIFY(a.isInLibrary() && b.isInLibrary());

        fixture.library().setMusicFolders({other.root()});
        QVERIFY(finished.wait());
        QCOMPARE(fixture.availability(a), Availability::FileGone);
        QCOMPARE(fixture.availability(b), Availability::Available);

        fixture.library().setMusicFolders({one.root()});
        QVERIFY(finished.wait());
        QCOMPARE(fixture.idAt(one.path("a.wav")), a); // known as before
        QCOMPARE(fixture.availability(a), Availability::Available);
        QCOMPARE(fixture.availability(b), Availability::FileGone);
    }

    void marksNothingWhenStopped()
    {
        const WavFolder music{"a.wav"};
        LibraryFixture fixture(music);
        const PersistentID id = fixture.idAt(music.path("a.wav"));
        music.remove("a.wav");
        std::stop_source stop;
        stop.request_stop();
        ScanMonitor monitor;
        const auto result = LibraryScanner(fixture.store(), {music.root()}).run(stop.get_token(), monitor);
        QVERIFY(result && !result->isComplete);
        QCOMPARE(fixture.availability(id), Availability::Available);
    }

    void takesTheImageOfAFolderWithOneAlbum()
    {
        const QByteArray png = "\x89PNG\r\n\x1a\n picture";
        const WavFolder music{"album/a.wav"};
        music.writeBytes("album/Cover.PNG", png);
        LibraryFixture fixture(music);
        const auto artwork = [&] {
            return fixture.library().songForPath(music.path("album/a.wav"))->item.artwork;
        };
        QVERIFY(artwork());
        QCOMPARE(artwork()->read()->bytes, png);
        music.remove("album/Cover.PNG");
        fixture.scan();
        QVERIFY(!artwork());
    }

    void tellsHowFarItHasCome()
    {
        const WavFolder music;
        for (int i = 0; i < 50; ++i)
            music.write(QByteArray::number(i) + ".wav", i, "Title");
        LibraryFixture fixture({music.root()});
        ScanController &scan = fixture.library().scan();
        QSignalSpy finished(&scan, &ScanController::finished);
        QSignalSpy changed(&fixture.library().mediaLibrary(), &MediaLibrary::libraryDidChange);
        scan.start();
        QVERIFY(scan.progress().isRunning);
        scan.start(); // another one follows
        QVERIFY(finished.wait());
        QCOMPARE(finished.size(), 1);
        QVERIFY(!changed.isEmpty());
        const ScanProgress progress = scan.progress();
        QCOMPARE(progress.filesFound, 50);
        QCOMPARE(progress.filesHandled, 50);
        QVERIFY(progress.isTotalKnown && !progress.isRunning);
        QCOMPARE(fixture.library().search(u"title"_s, 100)->size(), 50U);
    }
};

QTEST_GUILESS_MAIN(tst_LibraryScanner)
#include "tst_LibraryScanner.moc"
