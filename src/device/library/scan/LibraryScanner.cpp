// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/LibraryScanner.h"

#include "device/library/scan/BatchWriter.h"
#include "device/library/scan/BoundedQueue.h"
#include "device/library/scan/FileChanges.h"
#include "device/library/scan/FolderWatch.h"
#include "device/library/scan/ReadingRecord.h"
#include "device/library/scan/TrialReading.h"
#include "device/library/store/FileSignature.h"
#include "device/library/tags/TagReader.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <set>
#include <thread>
#include <variant>

namespace trackwise {

namespace {
using namespace std::chrono_literals;

constexpr std::size_t handful =
    16; ///< files that change threads together: waking a thread for each costs more
constexpr std::size_t queueLength = 8; ///< handfuls
constexpr auto longestTrial = 60s;     ///< for a file that may be to blame for the program's death

/// How the scan reads files: those that have ended the program before are put aside.
struct FileReading
{
    LibraryScanner::TagReading read;
    ReadingRecord record;
    std::set<QByteArray> suspects; ///< paths

    [[nodiscard]] Result<SongTags> tags(const QByteArray &path, const FolderListing &folder)
    {
        const ReadingRecord::Reading reading(record, path);
        return read(path, folder);
    }
    /// See HeardSounds.
    [[nodiscard]] std::uint64_t sound(const QByteArray &path)
    {
        if (suspects.contains(path))
            return 0;
        const Result<SongTags> found = tags(path, {});
        return found ? found->audioHash : 0;
    }
};

/// What the last process was reading when it died becomes suspect, with what has been so before.
Result<Done> learnSuspects(SongStore &store, FileReading &files)
{
    if (!files.record.leftBehind().empty()) {
        if (const auto noted = store.noteSuspects(files.record.leftBehind()); !noted)
            return noted;
    }
    files.record.startAnew();
    const auto suspects = store.suspects();
    if (!suspects)
        return suspects.failure();
    for (const FileName &file : *suspects)
        files.suspects.insert(file.path());
    return Done{};
}

// --- Walk, and compare with what is known ---

using TaskQueue = BoundedQueue<std::vector<ScanTask>>;

/// What the walk's thread does: it hands on what is to be read, and keeps back the files that are suspect.
class Walking
{
public:
    Walking(const std::vector<QByteArray> &musicFolders, const ScanRequest &request,
            const std::set<QByteArray> &suspects, FileChanges &changes)
        : m_musicFolders(musicFolders)
        , m_part(request.part)
        , m_watch(request.watch)
        , m_suspectPaths(suspects)
        , m_changes(changes)
    {}

    void run(TaskQueue &tasks, const std::stop_token &stop)
    {
        FolderWalk::Visitor visitor{
            [&](FoundFolder folder) {
                if (m_watch)
                    m_watch->didRead(folder);
                handOn(m_changes.compare(std::move(folder)), tasks, stop);
            },
            [&](const QByteArray &folder, int error) {
                handOn(m_changes.compareUnreadable(folder, error), tasks, stop);
            },
            {},
            [this](const QByteArray &path, FileIdentity folder) { m_changes.notePassedOver(path, folder); }};
        if (m_watch) {
            visitor.willRead = [this](const FoundFolder &folder) { m_watch->willRead(folder); };
            m_watch->willScan(m_part, m_musicFolders);
        }
        m_isComplete = m_part.isEverything() ? FolderWalk::walk(m_musicFolders, visitor, stop)
                                             : FolderWalk::walkPart(m_part, visitor, stop);
        if (m_watch && m_isComplete)
            m_watch->didScan(m_part);
    }
    void handOnRest(TaskQueue &tasks, const std::stop_token &stop)
    {
        (void)tasks.push(std::move(m_gathered), stop);
        tasks.close();
    }

    // After run():
    [[nodiscard]] bool isComplete() const { return m_isComplete; }
    [[nodiscard]] std::vector<ReadFile> &suspects() { return m_suspects; }

private:
    void handOn(std::vector<ScanTask> found, TaskQueue &tasks, const std::stop_token &stop)
    {
        for (ScanTask &task : found) {
            auto *file = std::get_if<ReadFile>(&task);
            if (file && m_suspectPaths.contains(file->file.path())) {
                m_suspects.push_back(std::move(*file));
                continue;
            }
            m_gathered.push_back(std::move(task));
            if (m_gathered.size() == handful && !tasks.push(std::exchange(m_gathered, {}), stop))
                return;
        }
    }

    const std::vector<QByteArray> &m_musicFolders;
    const ScanPart &m_part;
    FolderWatch *m_watch;
    const std::set<QByteArray> &m_suspectPaths;
    FileChanges &m_changes;
    std::vector<ScanTask> m_gathered;
    std::vector<ReadFile> m_suspects;
    bool m_isComplete = false;
};

// --- Read ---

using OutcomeQueue = BoundedQueue<std::vector<Outcome>>;

// By what every disk keeps: some make up inodes, and with them the time of their change, anew each time.
bool isStill(const QByteArray &path, std::int64_t size, std::int64_t modified)
{
    const auto now = signatureAt(path);
    return now && now->size == size && now->modified == modified;
}

Outcome performed(ReadFile task, FileReading &files)
{
    const QByteArray path = task.file.path();
    Result<SongTags> tags = files.tags(path, *task.companions);
    // What is said about a file that is not there goes for this moment only, and must not be kept with the
    // signature of a good one: nobody would look at it again.
    const bool wasThere = tags || tags.failure().kind != FailureKind::NotFound;
    if (!wasThere || !isStill(path, task.signature.size, task.signature.modified))
        return HasMoved{std::move(task.file)};
    if (!tags)
        return ScanProblem{std::move(task.file), task.signature, tags.failure().kind, tags.failure().detail};
    if (task.sidecar != 0 && !tags->lyrics &&
        access(task.companions->lyricsFile(task.file.name)->constData(), R_OK) != 0)
        task.sidecar = 0; // to be read when it can be
    return ScannedSong{std::move(task.file), task.signature, *std::move(tags), task.sidecar};
}

Outcome performed(ReadImage task, const FileReading &)
{
    if (task.companions) {
        if (const auto artwork = task.companions->artwork())
            task.image.key = artwork->key;
        else
            task.image.modified = 0; // tried again: it may not be there for a moment only
    }
    return std::move(task.image);
}

Outcome performed(ScanProblem task, const FileReading &)
{
    return task;
}

Outcome performedWithCare(ReadFile task, FileReading &files)
{
    const QByteArray path = task.file.path();
    switch (tryInChild([&] { (void)files.read(path, *task.companions); }, longestTrial)) {
    case TrialResult::Returned:
        return performed(std::move(task), files);
    case TrialResult::Died:
        return ScanProblem{std::move(task.file), task.signature, FailureKind::Malformed,
                           QStringLiteral("Reading it ends the program.")};
    case TrialResult::NotTried:
        break;
    }
    return HasMoved{std::move(task.file)};
}

/// What each of the reading threads does, until there is nothing more to do.
void readFrom(TaskQueue &tasks, OutcomeQueue &outcomes, FileReading &files, FolderWatch *watch,
              const std::stop_token &stop)
{
    while (std::optional<std::vector<ScanTask>> some = tasks.pop(stop)) {
        std::vector<Outcome> done;
        done.reserve(some->size());
        for (ScanTask &task : *some) {
            if (stop.stop_requested())
                return;
            done.push_back(
                std::visit([&files](auto &&t) { return performed(std::forward<decltype(t)>(t), files); },
                           std::move(task)));
            const auto *moved = std::get_if<HasMoved>(&done.back());
            if (moved && watch)
                watch->didFindGrowing(moved->file);
        }
        if (!outcomes.push(std::move(done), stop))
            return;
    }
}

Result<Done> writeMissing(SongStore &store, const FileChanges::Missing &missing)
{
    if (!missing.gone.empty()) {
        if (const auto written = store.setAvailability(missing.gone, Availability::FileGone); !written)
            return written;
    }
    if (!missing.diskAbsent.empty()) {
        if (const auto written = store.setAvailability(missing.diskAbsent, Availability::DiskAbsent);
            !written)
            return written;
    }
    return missing.problems.empty() ? Done{} : store.forgetProblems(missing.problems);
}

/// One scan: what its threads share, and the order of its steps.
class Scan
{
public:
    Scan(SongStore &store, const std::vector<QByteArray> &musicFolders, const ScanRequest &request,
         FileReading &files, KnownFiles &known, ScanMonitor &monitor)
        : m_store(store)
        , m_request(request)
        , m_files(files)
        , m_monitor(monitor)
        , m_changes(musicFolders, known, request.scope, monitor)
        , m_walk(musicFolders, request, files.suspects, m_changes)
        , m_writer(
              store, [&files](const QByteArray &path) { return files.sound(path); }, monitor)
    {}

    [[nodiscard]] Result<ScanSummary> run(const std::stop_token &stop, unsigned readers)
    {
        if (const Result<Done> brought = bringIn(stop, readers); !brought)
            return brought.failure();
        ScanSummary &summary = m_writer.summary();
        summary.isComplete = m_walk.isComplete() && !stop.stop_requested();
        summary.unreadableMusicFolders = m_changes.unreadableMusicFolders();
        if (summary.isComplete) {
            for (ReadFile &suspect : m_walk.suspects())
                m_writer.gather(performedWithCare(std::move(suspect), m_files));
        }
        Result<Done> written = m_writer.write(); // what was read before a cancellation is kept as well
        if (written && !m_changes.returned().empty())
            written = m_store.setAvailability(m_changes.returned(), Availability::Available);
        if (written && summary.isComplete)
            written = writeWhatIsOver();
        if (written)
            written = m_writer.finishIndex(stop);
        if (written)
            written = m_store.checkIsThere();
        if (!written)
            return written.failure();
        if (summary.songsRead + summary.songsMissing + std::ssize(m_changes.returned()) > 0)
            m_monitor.noteLibraryChange();
        return summary;
    }

private:
    /// Walks, reads and writes at the same time.
    [[nodiscard]] Result<Done> bringIn(const std::stop_token &stop, unsigned readers)
    {
        std::stop_source ending;
        const std::stop_callback forward(stop, [&ending] { ending.request_stop(); });
        TaskQueue tasks(queueLength);
        OutcomeQueue outcomes(queueLength);
        std::atomic<unsigned> atWork = readers;
        std::vector<std::jthread> threads; // last: they end before what they use
        threads.emplace_back([&] {
            m_walk.run(tasks, ending.get_token());
            m_monitor.noteAllFound();
            m_walk.handOnRest(tasks, ending.get_token());
        });
        for (unsigned i = 0; i < readers; ++i) {
            threads.emplace_back([&] {
                readFrom(tasks, outcomes, m_files, m_request.watch, ending.get_token());
                if (--atWork == 0)
                    outcomes.close();
            });
        }
        while (std::optional<std::vector<Outcome>> some = outcomes.pop(ending.get_token())) {
            for (Outcome &outcome : *some)
                m_writer.gather(std::move(outcome));
            if (const Result<Done> written = m_writer.writeIfDue(); !written) {
                ending.request_stop();
                return written;
            }
        }
        return Done{};
    }

    /// What is known when all has been walked.
    [[nodiscard]] Result<Done> writeWhatIsOver()
    {
        const FileChanges::Missing missing = m_changes.missing();
        m_writer.summary().songsMissing = std::ssize(missing.gone) + std::ssize(missing.diskAbsent);
        m_writer.summary().wasDisturbed = missing.hasReturned;
        Result<Done> written = writeMissing(m_store, missing);
        if (written)
            written = m_writer.writeImages();
        if (written && !m_files.suspects.empty() && m_request.part.isEverything())
            written = m_store.clearSuspects();
        return written;
    }

    SongStore &m_store;
    const ScanRequest &m_request;
    FileReading &m_files;
    ScanMonitor &m_monitor;
    FileChanges m_changes;
    Walking m_walk;
    BatchWriter m_writer;
};
} // namespace

LibraryScanner::LibraryScanner(SongStore &store, std::vector<QByteArray> musicFolders, unsigned readers)
    : m_store(store)
    , m_musicFolders(std::move(musicFolders))
    , m_readers(readers != 0 ? readers : std::max(1U, std::thread::hardware_concurrency()))
    , m_read([](const QByteArray &path, const FolderListing &folder) { return readTags(path, folder); })
{}

Result<ScanSummary> LibraryScanner::run(const std::stop_token &stop, ScanMonitor &monitor,
                                        const ScanRequest &request)
{
    FileReading files{m_read, ReadingRecord(m_store.path() + "-reading"), {}};
    if (const Result<Done> learnt = learnSuspects(m_store, files); !learnt)
        return learnt.failure();
    Result<KnownFiles> known = KnownFiles::load(m_store, request.part);
    if (!known)
        return known.failure();
    Result<ScanSummary> summary =
        Scan(m_store, m_musicFolders, request, files, *known, monitor).run(stop, m_readers);
    m_store.releaseMemory();
    malloc_trim(0); // the heaps of the readers would stay with the process otherwise
    return summary;
}

} // namespace trackwise
