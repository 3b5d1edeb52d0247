// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/library/WavFolder.h"
#include "device/library/scan/FolderWatch.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QFile>
#include <QScopeGuard>
#include <QSignalSpy>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <mutex>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace {

/// A library that follows its folder, scanning what it is told to, one scan after the other.
class Follower : public QObject
{
public:
    explicit Follower(const WavFolder &music, const WatchLimits &limits = {}, const QByteArray &folder = {})
        : fixture({folder.isEmpty() ? music.root() : folder})
        , watch(
              [this](const ScanPart &part) {
                  isTelling = true;
                  const std::scoped_lock lock(gate);
                  QMetaObject::invokeMethod(
                      this, [this, part] { scan(part); }, Qt::QueuedConnection);
              },
              limits)
    {
        scan(ScanPart::everything());
        parts.clear();
    }

    void scan(const ScanPart &part)
    {
        ScanMonitor monitor;
        const auto result = LibraryScanner(fixture.store(), fixture.library().configuration().musicFolders)
                                .run({}, monitor, {ScanScope::Changes, part, &watch});
        QVERIFY(result && result->isComplete);
        parts.push_back(part);
    }

    LibraryFixture fixture;
    std::vector<ScanPart> parts; ///< that were scanned since the first scan
    std::atomic<bool> isTelling = false;
    std::mutex gate; ///< holds the watch up when it tells of something
    FolderWatch watch;
};

/// Gives this process mounts of its own, where the system lets anybody have that.
bool takeOwnMounts()
{
    if (unshare(CLONE_NEWNS) != 0) {
        const QByteArray me = QByteArray::number(getuid());
        QFile users(QStringLiteral("/proc/self/uid_map"));
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0 || !users.open(QIODevice::WriteOnly) ||
            users.write(me + ' ' + me + " 1") < 0)
            return false;
    }
    return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool hasOwnMounts = false;

} // namespace

class tst_FolderWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noticesWhatHappens()
    {
        // What happens, the songs that are left, and whether all has to be scanned for it.
        const std::tuple<QByteArray, const char *, bool> rows[]{
            {"cp ../c.wav sub", "a.wav sub/b.wav sub/c.wav", false},
            {"rm a.wav", "sub/b.wav", false},
            {"mv a.wav z.wav", "sub/b.wav z.wav", false},
            {"cp ../c.wav c.part; mv c.part c.wav", "a.wav c.wav sub/b.wav", false},
            {"ln a.wav l.wav", "a.wav l.wav sub/b.wav", false},
            {"mkdir -p 1/2/3; cp ../c.wav 1/2/3; cp ../d.wav 1", "1/2/3/c.wav 1/d.wav a.wav sub/b.wav",
             false},
            {"mv sub other", "a.wav other/b.wav", false},
            {"mv sub other; mv other/b.wav other/c.wav", "a.wav other/c.wav", false},
            {"mv sub ../gone", "a.wav", false},
            {"rm -r sub", "a.wav", false},
            {"mv sub .sub", "a.wav", false},
            {"touch sub/.nomedia", "a.wav", true},
            {"rm quiet/.nomedia", "a.wav quiet/q.wav sub/b.wav", true},
            {"ln -s ../outside way", "a.wav sub/b.wav way/e.wav", true},
            {"mv ../music ../elsewhere", "", true}};
        for (const auto &[happening, songs, isEverything] : rows) {
            const WavFolder music{"a.wav",    "sub/b.wav",        "../c.wav",
                                  "../d.wav", "../outside/e.wav", "quiet/q.wav"};
            music.writeBytes("quiet/.nomedia", {});
            Follower follower(music);
            music.run(happening);
            QTRY_COMPARE(happening + ": " + follower.fixture.available(music), happening + ": " + songs);
            QVERIFY2(follower.parts.front().isEverything() == isEverything, happening);
            music.write("0/later.wav", 9, "What came new is watched as well");
            QTRY_VERIFY2(follower.fixture.available(music).startsWith("0/later.wav"), happening);
        }
    }

    void waitsForFilesThatAreBeingWritten()
    {
        const WavFolder music{"a.wav"};
        Follower follower(music, {.stalledWriter = 1h});
        const PersistentID known = follower.fixture.idAt(music.path("a.wav"));
        music.write("../b.wav", 2, "B");
        const QByteArray whole = contentsOf(QFile::decodeName(music.path("../b.wav")));
        std::vector<std::unique_ptr<QFile>> copies; // a new file, and one over a known song
        for (const QByteArray &name : {music.path("b.wav"), music.path("a.wav")}) {
            copies.push_back(std::make_unique<QFile>(QFile::decodeName(name)));
            QVERIFY(copies.back()->open(QIODevice::WriteOnly | QIODevice::Unbuffered));
            copies.back()->write(whole.first(whole.size() / 2));
        }
        music.write("c.wav", 3, "C");
        QTRY_COMPARE(follower.fixture.available(music), "a.wav c.wav"_ba);
        QCOMPARE(follower.fixture.availability(known), Availability::Available);
        QCOMPARE(follower.fixture.library().status()->problems, 0);
        for (const auto &copy : copies) {
            copy->write(whole.sliced(whole.size() / 2));
            copy->close();
        }
        QTRY_COMPARE(follower.fixture.available(music), "a.wav b.wav c.wav"_ba);
        QTRY_COMPARE(follower.fixture.library().songForPath(music.path("a.wav"))->item.title, u"B");
    }

    void scansEverythingWhereEventsWereLost()
    {
        const WavFolder music{"a.wav"};
        Follower follower(music);
        std::unique_lock held(follower.gate);
        music.write("b.wav", 2, "B");
        QTRY_VERIFY(follower.isTelling); // and takes no events meanwhile
        int most = 0;
        std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> most;
        QVERIFY(most > 0);
        QByteArray from = music.path("b.wav");
        QByteArray to = music.path("c.wav");
        for (int i = 0; i < most; ++i, std::swap(from, to)) // two events each
            QCOMPARE(std::rename(from.constData(), to.constData()), 0);
        held.unlock();
        QTRY_VERIFY(std::ranges::any_of(follower.parts, &ScanPart::isEverything));
    }

    void repeatsADisturbedScanThreeTimes()
    {
        const WavFolder music{"sub/a.wav"};
        LibraryFixture fixture({music.root()});
        // No walk comes to it by this name, but it is there: as if it had been away for a moment.
        const ScannedSong song{{music.path("sub/"), "a.wav"}, *signatureAt(music.path("sub/a.wav")), {}};
        QVERIFY(fixture.store().write(std::span(&song, 1), {}, {}));
        ScanController &scan = fixture.library().scan();
        int ends = 0;
        connect(&scan, &LibraryScan::progressDidChange, this,
                [&] { ends += scan.progress().isRunning ? 0 : 1; });
        QSignalSpy finished(&scan, &ScanController::finished);
        for (const auto &[isFollowing, times] :
             {std::pair(false, 1), std::pair(true, 4), std::pair(true, 4)}) {
            scan.setFollowing(isFollowing);
            ends = 0;
            scan.start();
            QVERIFY(finished.wait());
            QCOMPARE(ends, times);
        }
    }

    void gathersChanges()
    {
        const ChangeGathering::Time start(1h);
        const FileName a{"/m", "a"};
        ScanPart folder;
        folder.addFolder("/m");
        ChangeGathering changes(1s);
        QCOMPARE(changes.nextDue(), std::nullopt);
        changes.add(folder, start);
        QCOMPARE(changes.nextDue(), start + 120ms);
        changes.add(folder, start + 100ms); // no pause yet
        QVERIFY(changes.takeDue(start + 219ms).isEmpty());
        QCOMPARE(changes.takeDue(start + 220ms), folder);
        for (int i = 0; i < 80; ++i) // without a pause: twice as long as at first, since it goes on
            changes.add(folder, start + 1s + i * 200ms);
        QCOMPARE(changes.nextDue(), start + 17s);
        QCOMPARE(changes.takeDue(start + 17s), folder);
        changes.add(folder, start + 19s); // after a calm all is as at first
        QCOMPARE(changes.nextDue(), start + 19s + 120ms);
        QCOMPARE(changes.takeDue(start + 20s), folder);

        auto now = start + 1min;
        for (const auto patience : {1s, 2s, 4s, 8s, 16s, 30s, 30s}) { // it grows again each time it is taken
            changes.addGrowing(a, now);
            QVERIFY(changes.isGrowing(a));
            QVERIFY(changes.takeDue(now + patience - 1ms).isEmpty());
            QCOMPARE(changes.nextDue(), now + patience);
            (void)changes.takeDue(now + patience);
            QVERIFY(!changes.isGrowing(a));
            now += patience + 1s;
            QCOMPARE(changes.takeDue(now), folder);
        }
        changes.addChanged(a, now);
        QVERIFY(!changes.hasGrowing());
        changes.clear();
        QCOMPARE(changes.nextDue(), std::nullopt);
    }

    void looksNowAndThenWhereTheSystemDoesNotTell()
    {
        const WavFolder music{"a.wav", "old/b.wav"};
        Follower follower(music, {.mostWatches = 1, .pollInterval = 10ms});
        QVERIFY(!follower.watch.seesEverything());
        music.write("../c.wav", 3, "C");
        music.write("../new/d.wav", 4, "D");
        music.run("touch -d '1 hour ago' ../c.wav ../new/d.wav; " // what is older counts as complete
                  "mv ../c.wav old; mv ../new old");
        QTRY_COMPARE(follower.fixture.available(music), "a.wav old/b.wav old/c.wav old/new/d.wav"_ba);
        QVERIFY(!follower.parts.front().isEverything());
        music.remove("old/new");
        QTRY_COMPARE(follower.fixture.available(music), "a.wav old/b.wav old/c.wav"_ba);
        music.remove("old");
        QTRY_COMPARE(follower.fixture.available(music), "a.wav"_ba);
        QVERIFY(follower.watch.seesEverything());
    }

    void followsFoldersThatGoAndComeBack()
    {
        const WavFolder music{"up/down/a.wav"};
        Follower follower(music, {}, music.path("up/down"));
        const PersistentID id = follower.fixture.idAt(music.path("up/down/a.wav"));
        for (const char *folder : {"up/down", "up", "up/down", "../music"}) { // itself, or one above it
            music.move(folder, "../elsewhere");
            QTRY_COMPARE(follower.fixture.availability(id), Availability::DiskAbsent);
            const LibraryBrowser &browser = follower.fixture.library().browser();
            QCOMPARE(browser.songCount(), 1); // shown, but not as available
            QVERIFY(!browser.songRows(std::span(&id, 1)).front().isAvailable);
            music.move("../elsewhere", folder);
            QTRY_COMPARE(follower.fixture.availability(id), Availability::Available);
        }
    }

    void followsDisksThatComeAndGo()
    {
        if (!hasOwnMounts)
            QSKIP("the system does not let us mount anything");
        const WavFolder music{"a.wav"};
        music.makeFolder("the disk");
        const QByteArray disk = music.path("the disk");
        Follower follower(music);
        music.write("../b.wav", 2, "B");
        QCOMPARE(mount("none", disk.constData(), "tmpfs", 0, nullptr), 0);
        const auto unmount = qScopeGuard([&] { umount2(disk.constData(), MNT_DETACH); });
        music.copy("../b.wav", "the disk/b.wav");
        QTRY_COMPARE(follower.fixture.available(music), "a.wav the disk/b.wav"_ba);
        const PersistentID id = follower.fixture.idAt(music.path("the disk/b.wav"));
        QCOMPARE(umount2(disk.constData(), MNT_DETACH), 0);
        QTRY_COMPARE(follower.fixture.availability(id), Availability::DiskAbsent);
        QCOMPARE(follower.fixture.available(music), "a.wav"_ba);
    }

    void watchesOnlyWhatItMay()
    {
        const WavFolder music{"a.wav"};
        LibraryFixture fixture({music.root()});
        ScanController &scan = fixture.library().scan();
        QSignalSpy progress(&scan, &LibraryScan::progressDidChange);
        QSignalSpy finished(&scan, &ScanController::finished);
        fixture.library().followMusicFolders();
        scan.lookForChanges();
        QVERIFY(progress.isEmpty()); // nothing has been decided

        fixture.library().access().setStatus(LibraryAuthorizationStatus::Authorized);
        scan.start();
        QVERIFY(finished.wait());
        music.write("b.wav", 2, "B");
        QTRY_COMPARE(fixture.available(music), "a.wav b.wav"_ba);
        QTRY_VERIFY(!scan.progress().isRunning);
        QCOMPARE(finished.size(), 1); // nobody asked for the other scan
        QVERIFY(scan.progress().isQuiet);

        const WavFolder other{"c.wav"};
        fixture.library().setMusicFolders({other.root()});
        QVERIFY(finished.wait());
        other.write("d.wav", 4, "D");
        QTRY_COMPARE(fixture.available(other), "c.wav d.wav"_ba);

        fixture.library().access().setStatus(LibraryAuthorizationStatus::Denied);
        QTRY_VERIFY(!scan.progress().isRunning);
        progress.clear();
        other.write("e.wav", 5, "E");
        // Seen by one who watches the same folder, and not by us.
        Follower follower(other);
        other.write("f.wav", 6, "F");
        QTRY_COMPARE(follower.fixture.available(other), "c.wav d.wav e.wav f.wav"_ba);
        QVERIFY(progress.isEmpty());
    }
};

int main(int argc, char *argv[])
{
    hasOwnMounts = takeOwnMounts(); // while there is one thread
    QCoreApplication application(argc, argv);
    tst_FolderWatch test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_FolderWatch.moc"
