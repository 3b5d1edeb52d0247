// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/LibraryScanner.h"

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
using Clock = std::chrono::steady_clock;

constexpr std::size_t handful =
    16; ///< files that change threads together: waking a thread for each costs more
constexpr std::size_t queueLength = 8; ///< handfuls
constexpr std::size_t batchSize = 500;
constexpr auto longestWait = 1s;   ///< until songs that have been read are seen
constexpr auto longestTrial = 60s; ///< for a file that may be to blame for the program's death
constexpr int indexStep = 4000;    ///< songs; about a tenth of a second of writing
constexpr int renewStep = 1000;    ///< songs whose words are both taken out and put in
constexpr qsizetype songsBetweenIndexing = 20'000;

Instant now()
{
    return std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

using Task = std::variant<ReadFile, ReadImage, ScanProblem>;
/// What was there when the walk came by, and is not any more or is something else: the next scan's matter.
struct HasMoved
{
    FileName file;
};
using Outcome = std::variant<ScannedSong, FolderImage, ScanProblem, HasMoved>;

// By what every disk keeps: some make up inodes, and with them the time of their change, anew each time.
bool isStill(const QByteArray &path, std::int64_t size, std::int64_t modified)
{
    const auto now = signatureAt(path);
    return now && now->size == size && now->modified == modified;
}

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
};

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

/// The threads between the music folders and the writer.
class Pipeline
{
public:
    Pipeline(const std::vector<QByteArray> &roots, const ScanRequest &request, FileReading &files,
             FileChanges::Needs &needs)
        : m_roots(roots)
        , m_part(request.part)
        , m_watch(request.watch)
        , m_files(files)
    {
        const auto hand = [this](auto task) {
            m_gathered.emplace_back(std::move(task));
            return m_gathered.size() < handful || handOver();
        };
        const auto handFile = [this, hand](ReadFile task) {
            if (!m_files.suspects.contains(task.file.path()))
                return hand(std::move(task));
            m_suspects.push_back(std::move(task));
            return true;
        };
        needs = {handFile, hand, [hand](ScanProblem problem) { (void)hand(std::move(problem)); }};
    }

    void start(FileChanges &changes, ScanMonitor &monitor, unsigned readers)
    {
        m_threads.emplace_back([this, &changes, &monitor] {
            m_isWalkComplete = walk(changes);
            monitor.noteAllFound();
            (void)handOver();
            m_tasks.close();
        });
        m_readersAtWork = readers;
        for (unsigned i = 0; i < readers; ++i)
            m_threads.emplace_back([this] { read(); });
    }

    [[nodiscard]] std::optional<std::vector<Outcome>> next() { return m_outcomes.pop(m_stop.get_token()); }
    void stop() { m_stop.request_stop(); }
    [[nodiscard]] bool isStopped() const { return m_stop.stop_requested(); }
    /// Whether all folders were walked. Waits for the threads.
    [[nodiscard]] bool finish()
    {
        m_threads.clear();
        return m_isWalkComplete && !isStopped();
    }
    /// Files for which nobody has looked yet; after finish().
    [[nodiscard]] std::vector<ReadFile> takeSuspects() { return std::move(m_suspects); }
    ~Pipeline() { stop(); }

private:
    bool handOver() { return m_tasks.push(std::exchange(m_gathered, {}), m_stop.get_token()); }

    [[nodiscard]] bool walk(FileChanges &changes)
    {
        FolderWalk::Visitor visitor{
            [&](FoundFolder folder) {
                if (m_watch)
                    m_watch->didRead(folder);
                changes.take(std::move(folder));
            },
            [&](const QByteArray &folder, int error) { changes.takeUnreadable(folder, error); },
            {},
            [&](const QByteArray &path, FileIdentity folder) { changes.takePassedOver(path, folder); }};
        if (m_watch) {
            visitor.willRead = [this](const FoundFolder &folder) { m_watch->willRead(folder); };
            m_watch->willScan(m_part, m_roots);
        }
        const bool isComplete = m_part.isEverything()
                                    ? FolderWalk::walk(m_roots, visitor, m_stop.get_token())
                                    : FolderWalk::walkPart(m_part, visitor, m_stop.get_token());
        if (m_watch && isComplete)
            m_watch->didScan(m_part);
        return isComplete;
    }

    void read()
    {
        while (std::optional<std::vector<Task>> tasks = m_tasks.pop(m_stop.get_token())) {
            std::vector<Outcome> outcomes;
            outcomes.reserve(tasks->size());
            for (Task &task : *tasks) {
                if (m_stop.stop_requested())
                    break;
                outcomes.push_back(
                    std::visit([this](auto &&t) { return performed(std::forward<decltype(t)>(t), m_files); },
                               std::move(task)));
                const auto *moved = std::get_if<HasMoved>(&outcomes.back());
                if (moved && m_watch)
                    m_watch->didFindGrowing(moved->file);
            }
            if (!m_outcomes.push(std::move(outcomes), m_stop.get_token()))
                break;
        }
        if (--m_readersAtWork == 0)
            m_outcomes.close();
    }

    const std::vector<QByteArray> &m_roots;
    const ScanPart &m_part;
    FolderWatch *m_watch;
    FileReading &m_files;
    std::vector<ReadFile> m_suspects; ///< by the walk
    std::stop_source m_stop;
    std::vector<Task> m_gathered; ///< by the walk
    BoundedQueue<std::vector<Task>> m_tasks{queueLength};
    BoundedQueue<std::vector<Outcome>> m_outcomes{queueLength};
    std::atomic<unsigned> m_readersAtWork = 0;
    bool m_isWalkComplete = false;
    std::vector<std::jthread> m_threads; ///< last: they end before what they use
};

/// Gathers what was read and writes it in batches.
class BatchWriter
{
public:
    BatchWriter(SongStore &store, ScanMonitor &monitor)
        : m_store(store)
        , m_monitor(monitor)
    {}

    [[nodiscard]] Result<Done> take(std::vector<Outcome> outcomes)
    {
        for (Outcome &outcome : outcomes)
            gather(std::move(outcome));
        const bool isFull = m_songs.size() + m_problems.size() >= batchSize;
        return isFull || Clock::now() - m_lastWrite > longestWait ? write() : Done{};
    }

    void gather(Outcome outcome)
    {
        if (auto *song = std::get_if<ScannedSong>(&outcome))
            m_songs.push_back(std::move(*song));
        else if (auto *problem = std::get_if<ScanProblem>(&outcome))
            m_problems.push_back(std::move(*problem));
        else if (std::holds_alternative<HasMoved>(outcome))
            m_monitor.noteHandled(1);
        else
            m_images.push_back(std::get<FolderImage>(std::move(outcome)));
    }

    [[nodiscard]] Result<Done> write()
    {
        m_lastWrite = Clock::now();
        if (m_songs.empty() && m_problems.empty())
            return Done{};
        // The readers finish out of order; the library's order is that of the names.
        std::sort(m_songs.begin(), m_songs.end(), [](const ScannedSong &a, const ScannedSong &b) {
            return std::tie(a.file.folder, a.file.name) < std::tie(b.file.folder, b.file.name);
        });
        if (const Result<Done> written = m_store.write(m_songs, m_problems, now()); !written)
            return written;
        m_summary.songsRead += std::ssize(m_songs);
        m_summary.filesFailed += std::ssize(m_problems);
        m_sinceIndexing += std::ssize(m_songs);
        m_monitor.noteHandled(std::ssize(m_songs) + std::ssize(m_problems));
        m_monitor.noteLibraryChange();
        m_songs.clear();
        m_problems.clear();
        return m_sinceIndexing >= songsBetweenIndexing ? index({}) : Done{};
    }

    [[nodiscard]] Result<Done> index(const std::stop_token &stop)
    {
        m_sinceIndexing = 0;
        for (;;) {
            const Result<bool> isMoreWaiting = m_store.indexNext(indexStep);
            if (!isMoreWaiting)
                return isMoreWaiting.failure();
            if (!*isMoreWaiting || stop.stop_requested())
                return Done{};
        }
    }

    [[nodiscard]] Result<Done> renewTexts(const std::stop_token &stop)
    {
        for (;;) {
            const Result<bool> isMoreWaiting = m_store.renewNext(renewStep);
            if (!isMoreWaiting)
                return isMoreWaiting.failure();
            if (!*isMoreWaiting || stop.stop_requested())
                return Done{};
        }
    }

    [[nodiscard]] Result<Done> writeImages()
    {
        return m_images.empty() ? Done{} : m_store.writeFolderImages(m_images);
    }

    [[nodiscard]] ScanSummary &summary() { return m_summary; }

private:
    SongStore &m_store;
    ScanMonitor &m_monitor;
    std::vector<ScannedSong> m_songs;
    std::vector<ScanProblem> m_problems;
    std::vector<FolderImage> m_images; ///< written last, when it is known how many albums a folder holds
    ScanSummary m_summary;
    qsizetype m_sinceIndexing = 0;
    Clock::time_point m_lastWrite = Clock::now();
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

/// While the writer writes, it reads as the scan does.
class WriterReading
{
public:
    WriterReading(SongStore &store, FileReading &files)
        : m_store(store)
    {
        m_store.setReading([&files](const QByteArray &path) {
            return files.suspects.contains(path) ? Failure{FailureKind::Unreadable, {}}
                                                 : files.tags(path, {});
        });
    }
    WriterReading(const WriterReading &) = delete;
    WriterReading &operator=(const WriterReading &) = delete;
    ~WriterReading()
    {
        m_store.setReading([](const QByteArray &path) { return readTags(path); });
    }

private:
    SongStore &m_store;
};

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
    const WriterReading reading(m_store, files);
    Result<KnownFiles> known = KnownFiles::load(m_store, request.part);
    if (!known)
        return known.failure();
    BatchWriter writer(m_store, monitor);
    FileChanges::Needs needs;
    Pipeline pipeline(m_musicFolders, request, files, needs);
    FileChanges changes(m_musicFolders, *known, request.scope, monitor, needs);
    const std::stop_callback forward(stop, [&pipeline] { pipeline.stop(); });
    pipeline.start(changes, monitor, m_readers);

    while (std::optional<std::vector<Outcome>> outcomes = pipeline.next()) {
        if (const Result<Done> taken = writer.take(std::move(*outcomes)); !taken) {
            pipeline.stop();
            (void)pipeline.finish();
            return taken.failure();
        }
    }
    writer.summary().isComplete = pipeline.finish();
    writer.summary().unreadableMusicFolders = changes.unreadableMusicFolders();
    if (writer.summary().isComplete) {
        for (ReadFile &suspect : pipeline.takeSuspects())
            writer.gather(performedWithCare(std::move(suspect), files));
    }
    Result<Done> written = writer.write(); // what was read before a cancellation is kept as well
    if (written && !changes.returned().empty())
        written = m_store.setAvailability(changes.returned(), Availability::Available);
    if (written && writer.summary().isComplete) {
        const FileChanges::Missing missing = changes.missing();
        writer.summary().songsMissing = std::ssize(missing.gone) + std::ssize(missing.diskAbsent);
        writer.summary().wasDisturbed = missing.hasReturned;
        written = writeMissing(m_store, missing);
        if (written)
            written = writer.writeImages();
        if (written && !files.suspects.empty() && request.part.isEverything())
            written = m_store.clearSuspects();
    }
    if (written)
        written = writer.index(stop);
    if (written)
        written = writer.renewTexts(stop);
    if (written)
        written = m_store.checkIsThere();
    if (!written)
        return written.failure();
    if (writer.summary().songsRead + writer.summary().songsMissing + std::ssize(changes.returned()) > 0)
        monitor.noteLibraryChange();
    m_store.releaseMemory();
    malloc_trim(0); // the readers' heaps would stay with the process otherwise
    return writer.summary();
}

} // namespace trackwise
