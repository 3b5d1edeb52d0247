// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/recognizer/CatalogSummary.h"
#include "device/recognizer/LibraryFingerprinting.h"
#include "fingerprint/Pieces.h"
#include "fingerprint/Row.h"
#include "support/Test.h"
#include "support/WavFile.h"

#include <QProcess>
#include <QSignalSpy>

#include <cstdlib>
#include <functional>
#include <map>
#include <sched.h>
#include <sys/resource.h>

namespace {

using Activity = RecognitionIndexState::Activity;
using Workers = LibraryFingerprinting::Workers;

const Workers noWorkers{u"/nonexistent"_s, {}, 1};

Workers workers(int count = 2)
{
    return {u"/proc/self/exe"_s, Workers::ofThisProgram(Effort::Full).arguments, count};
}

/// What this program does as a worker: some songs are more than it can take.
Result<HeardSong> listen(const QByteArray &path, const std::function<void()> &goesOn)
{
    const auto isFirst = [&] {
        return std::rename((path + ".first").constData(), (path + ".second").constData()) == 0;
    };
    if (path.endsWith("/crash.wav") || (path.endsWith("/killed.wav") && isFirst()))
        std::abort();
    while (path.endsWith("/hang.wav"))
        ;
    return hear(path, goesOn);
}

void writeSong(const WavFolder &music, const char *name, unsigned seed)
{
    using namespace fingerprint;
    music.writeBytes(name, wavFile(piece(seed, 3), sampleRateHz, 1, {{"INAM", name}}));
}

} // namespace

class tst_LibraryFingerprinting : public QObject
{
    Q_OBJECT

private:
    /// A library of three songs, and its catalog.
    struct Songs
    {
        Songs()
        {
            unsigned seed = 0;
            for (const char *name : {"a.wav", "b.wav", "c.wav"})
                writeSong(music, name, ++seed);
            fixture.scan();
        }
        [[nodiscard]] QByteArray folder() const { return catalogFolder(fixture.databasePath()); }
        [[nodiscard]] std::unique_ptr<LibraryFingerprinting> with(const Workers &some)
        {
            return std::make_unique<LibraryFingerprinting>(fixture.library(), folder(), some);
        }
        /// Works to the end; what there is to tell then.
        RecognitionIndexState state(const Workers &some = workers())
        {
            const auto fingerprinting = with(some);
            QSignalSpy ends(fingerprinting.get(), &LibraryFingerprinting::finished);
            fingerprinting->lookForWork();
            return ends.wait(30000) ? fingerprinting->state() : RecognitionIndexState{};
        }
        /// The songs of the catalog, by their titles, with their lengths.
        [[nodiscard]] std::map<QByteArray, float> known()
        {
            std::map<QByteArray, float> songs;
            const auto catalog = *readCatalog(fixture.databasePath());
            for (fingerprint::SongNumber i = 0; i < catalog->songCount(); ++i) {
                const auto song = catalog->song(i);
                const auto inLibrary = fixture.library().song({song.persistentID});
                if (!catalog->isRemoved(i))
                    songs[inLibrary ? inLibrary->file.name : QByteArray("?")] = song.seconds;
            }
            return songs;
        }
        [[nodiscard]] fingerprint::SongNumber songsEver()
        {
            return (*readCatalog(fixture.databasePath()))->songCount();
        }

        WavFolder music;
        LibraryFixture fixture{std::vector{music.root()}};
    };
    using Known = std::map<QByteArray, float>;

private Q_SLOTS:
    void listensToEachSongOnce()
    {
        Songs songs;
        const RecognitionIndexState state = songs.state();
        QCOMPARE(state.activity, Activity::Idle);
        QCOMPARE(std::pair(state.songsDone, state.songsTotal), (std::pair<qsizetype, qsizetype>(3, 3)));
        QVERIFY(state.bytes > 1000);
        QCOMPARE(songs.known(), (Known{{"a.wav", 3}, {"b.wav", 3}, {"c.wav", 3}}));
        const auto mergedNow =
            std::get<0>(fingerprint::CatalogStore::open(songs.folder().toStdString()))->mergeSome();
        QVERIFY(!std::get<bool>(mergedNow));           // it was tidied up before the end
        QCOMPARE(songs.state(noWorkers).songsDone, 3); // and nobody had to listen

        writeSong(songs.music, "b.wav", 9);
        songs.music.move("a.wav", "deeper/a.wav");
        songs.music.remove("c.wav");
        songs.fixture.scan();
        const auto summary =
            summaryOf(**readCatalog(songs.fixture.databasePath()), *songs.fixture.library().sounds());
        QCOMPARE(std::pair(summary.songs, summary.left), (std::pair<qsizetype, qsizetype>(1, 1)));
        QCOMPARE(songs.state(workers(1)).songsDone, 2);
        QCOMPARE(songs.known(), (Known{{"a.wav", 3}, {"b.wav", 3}}));
    }

    void goesOnWhereItWasStopped()
    {
        Songs songs;
        {
            const auto fingerprinting = songs.with(workers(1));
            connect(fingerprinting.get(), &RecognitionIndex::stateDidChange, this, [&] {
                if (fingerprinting->state().songsDone > 0)
                    fingerprinting->setPaused(true);
            });
            fingerprinting->lookForWork();
            QTRY_COMPARE(fingerprinting->state().activity, Activity::Paused);
        }
        const std::size_t before = songs.known().size();
        QVERIFY(before >= 1);
        QCOMPARE(songs.state().songsDone, 3);
        QCOMPARE(songs.known().size(), 3U);
    }

    void worksOnlyWhenItMay()
    {
        Songs songs;
        const auto fingerprinting = songs.with(workers());
        fingerprinting->setConditions(true, true);
        fingerprinting->lookForWork();
        QTRY_COMPARE(fingerprinting->state().songsTotal, 3);
        QCOMPARE(fingerprinting->state().activity, Activity::SavingPower);
        fingerprinting->setPaused(true);
        QCOMPARE(fingerprinting->state().activity, Activity::Paused);
        fingerprinting->noteMiss();
        QVERIFY(fingerprinting->state().hasMissed);
        fingerprinting->setConditions(false, true);
        QCOMPARE(fingerprinting->state().songsDone, 0);
        fingerprinting->setPaused(false);
        QCOMPARE(fingerprinting->state().activity, Activity::Working);
        QTRY_COMPARE(fingerprinting->state().songsDone, 3);
        QTRY_COMPARE(fingerprinting->state().activity, Activity::Idle);
        QTRY_VERIFY(!fingerprinting->state().hasMissed);
        fingerprinting->noteMiss(); // all songs are known
        QVERIFY(!fingerprinting->state().hasMissed);
        const auto timers = fingerprinting->findChildren<QTimer *>();
        QTRY_VERIFY(!timers.empty() &&
                    std::none_of(timers.begin(), timers.end(), std::mem_fn(&QTimer::isActive)));

        fingerprinting->clear();
        QTRY_COMPARE(fingerprinting->state().songsDone, 0);
        QCOMPARE(fingerprinting->state().activity, Activity::Paused);
        QTRY_COMPARE(songs.known().size(), 0U);
        QSignalSpy ends(fingerprinting.get(), &LibraryFingerprinting::finished);
        fingerprinting->rebuild();
        QVERIFY(ends.wait(30000));
        QCOMPARE(songs.known().size(), 3U);
    }

    void letsOthersWriteTheCatalog()
    {
        using fingerprint::CatalogStore;
        Songs songs;
        for (const char *name : {"d.wav", "e.wav", "f.wav", "g.wav", "h.wav", "i.wav"})
            writeSong(songs.music, name, unsigned(name[0]));
        songs.fixture.scan();
        const auto fingerprinting = songs.with(workers(1));
        std::unique_ptr<CatalogStore> store;
        const auto take = [&](CatalogStore::Note note) {
            auto opened =
                CatalogStore::open(songs.folder().toStdString(), fingerprint::PairDensity::Full, note);
            if (auto *made = std::get_if<0>(&opened))
                store = std::move(*made);
            return store != nullptr;
        };
        fingerprinting->lookForWork();
        QTRY_VERIFY(fingerprinting->state().songsDone > 0);
        fingerprinting->setPaused(true);
        QTRY_VERIFY(take(CatalogStore::Note::None));
        QVERIFY(!store->removeAll());
        store.reset();
        QTRY_COMPARE(fingerprinting->state().songsDone, 0);
        QCOMPARE(fingerprinting->state().activity, Activity::Paused);

        fingerprinting->setPaused(false);
        QTRY_VERIFY(fingerprinting->state().songsDone > 0);
        QVERIFY(!take(CatalogStore::Note::None));
        QTRY_VERIFY(take(CatalogStore::Note::Left)); // once it has been asked
        const auto done = store->songs().size();
        QVERIFY(done < 9);
        QCOMPARE(fingerprinting->state().activity, Activity::Working);
        store.reset();
        QTRY_COMPARE(fingerprinting->state().activity, Activity::Idle);
        QCOMPARE(songs.known().size(), 9U);

        QTRY_VERIFY(take(CatalogStore::Note::None));
        QVERIFY(!store->removeAll());
        QTRY_COMPARE(fingerprinting->state().songsDone, 0); // it sees what others do
        store.reset();
        QTRY_COMPARE(fingerprinting->state().songsDone, 9);
        QTRY_COMPARE(fingerprinting->state().activity, Activity::Idle);
    }

    void survivesEveryFile()
    {
        Songs songs;
        unsigned seed = 20;
        for (const char *name : {"crash.wav", "hang.wav", "killed.wav"})
            writeSong(songs.music, name, ++seed);
        songs.music.writeBytes("killed.wav.first", "");
        songs.fixture.scan();
        QCOMPARE(songs.state().songsDone, 6);
        QCOMPARE(songs.known(), (Known{{"a.wav", 3},
                                       {"b.wav", 3},
                                       {"c.wav", 3},
                                       {"crash.wav", 0},
                                       {"hang.wav", 0},
                                       {"killed.wav", 3}}));
        QCOMPARE(songs.state(noWorkers).activity, Activity::Idle); // none is tried again
    }

    void workersTakeWhatNobodyElseWants()
    {
        const auto background = Workers::ofThisProgram(Effort::Background);
        QProcess worker;
        worker.start(background.program, background.arguments);
        QTRY_COMPARE(sched_getscheduler(pid_t(worker.processId())), SCHED_IDLE);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
        rlimit memory{};
        QCOMPARE(prlimit(pid_t(worker.processId()), RLIMIT_DATA, nullptr, &memory), 0);
        QVERIFY(memory.rlim_cur <= rlim_t(1) << 30);
#endif
        worker.closeWriteChannel();
        QVERIFY(worker.waitForFinished());
        QCOMPARE(worker.exitCode(), 0);
    }

    void saysWhatKeepsItFromWorking()
    {
        Songs songs;
        const RecognitionIndexState state = songs.state(noWorkers);
        QCOMPARE(state.activity, Activity::Unavailable);
        QVERIFY(!state.trouble.isEmpty());
        QCOMPARE(state.songsDone, 0);
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && std::string_view(argv[1]) == workerArgument)
        return runFingerprintWorker(STDIN_FILENO, STDOUT_FILENO, argv[2], listen, 0s);
    QCoreApplication application(argc, argv);
    tst_LibraryFingerprinting test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_LibraryFingerprinting.moc"
