// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/LibraryFingerprinting.h"

#include "device/recognizer/FingerprintProcess.h"
#include "platform/Background.h"

#include <QFile>
#include <QLoggingCategory>

#include <algorithm>
#include <chrono>
#include <thread>
#include <unordered_set>

#include <sys/resource.h>
#include <unistd.h>

namespace trackwise {

namespace {

using namespace std::chrono_literals;
using fingerprint::CatalogFailure;
using fingerprint::CatalogStore;

Q_LOGGING_CATEGORY(log, "trackwise.recognizer", QtFatalMsg)

constexpr auto tellingInterval = 100ms;
/// Nobody tells when a catalog is free again: how often we look who have asked for it, and how long others
/// have it for themselves.
constexpr auto nextAttempt = 250ms;
constexpr auto turnOfOthers = 2s;

QString textOf(const CatalogFailure &failure)
{
    return QString::fromStdString(failure.detail);
}

/// What is written, merged and compared is nothing that anybody waits for.
void workQuietly()
{
    (void)setpriority(PRIO_PROCESS, id_t(gettid()), 19);
}

} // namespace

struct LibraryFingerprinting::Written
{
    std::optional<CatalogFailure> failure;
    qint64 bytes = 0;
};

/// A worker, and the song that it listens to.
struct LibraryFingerprinting::Listener : QObject
{
    Listener(const Workers &workers, QObject *parent)
        : QObject(parent)
        , process(workers.program, workers.arguments)
    {}

    FingerprintProcess process;
    std::optional<SongSound> song;
};

LibraryFingerprinting::Workers LibraryFingerprinting::Workers::ofThisProgram(Effort effort)
{
    const int cores = std::max(1, int(std::thread::hardware_concurrency()));
    // Not by its path, where there may be another version of it by now.
    return {QStringLiteral("/proc/self/exe"),
            {QString::fromLatin1(workerArgument), QString::fromLatin1(nameOf(effort).data())},
            effort == Effort::Full ? cores : std::max(1, cores - 1),
            effort == Effort::Background};
}

LibraryFingerprinting::LibraryFingerprinting(const LibraryQuestions &library, QByteArray folder,
                                             Workers workers, QObject *parent)
    : RecognitionIndex(parent)
    , m_library(library)
    , m_folder(std::move(folder))
    , m_workers(std::move(workers))
{
    for (QThreadPool *pool : {&m_pools.reading, &m_pools.writing, &m_pools.tidying})
        pool->setMaxThreadCount(1);
    m_pools.tidying.start(workQuietly);
    m_pools.tidying.setExpiryTimeout(-1); // its thread stays, and quiet
    m_telling.setParent(this);
    m_telling.setSingleShot(true);
    m_telling.setInterval(tellingInterval);
    connect(&m_telling, &QTimer::timeout, this, &RecognitionIndex::stateDidChange);
    m_others.end.setParent(this);
    m_others.end.setSingleShot(true);
    m_others.end.setInterval(m_workers.isPatient ? turnOfOthers : std::chrono::milliseconds(nextAttempt));
    connect(&m_others.end, &QTimer::timeout, this, &LibraryFingerprinting::lookAgain);
    connect(&m_others.notes, &QFileSystemWatcher::directoryChanged, this,
            &LibraryFingerprinting::catalogDidChange);
}

LibraryFingerprinting::~LibraryFingerprinting()
{
    m_others.begins.request_stop();
    endWorkers();
    for (QThreadPool *pool : {&m_pools.reading, &m_pools.writing, &m_pools.tidying})
        pool->waitForDone();
}

void LibraryFingerprinting::lookForWork()
{
    look(Beginning::WithWhatIsThere);
}

void LibraryFingerprinting::look(Beginning beginning)
{
    if (m_looking.isRunning) {
        m_looking.next = std::max(beginning, m_looking.next.value_or(beginning));
        return;
    }
    m_looking.isRunning = true;
    beginning = std::max(beginning, std::exchange(m_looking.due, std::nullopt).value_or(beginning));
    const bool leavesNote = !m_workers.isPatient || beginning == Beginning::Anew;
    const CatalogSurvey::Order order{m_folder, m_store, beginning,
                                     leavesNote ? CatalogStore::Note::Left : CatalogStore::Note::None};
    runInBackground(
        m_pools.writing, this, [library = &m_library, order] { return CatalogSurvey::of(*library, order); },
        [this, beginning](CatalogSurvey survey) { takeSurvey(beginning, std::move(survey)); });
    tell();
}

void LibraryFingerprinting::takeSurvey(Beginning beginning, CatalogSurvey survey)
{
    m_looking.isRunning = false;
    m_store = std::move(survey.store);
    m_others.notes.addPath(QFile::decodeName(m_folder));
    if (survey.isInUse)
        m_looking.due = beginning;
    if (survey.isInUse || isWantedByOthers()) // a note may have been left before there was a watch
        beginTurnOfOthers();
    m_songs.todo = std::move(survey.todo);
    m_songs.total = survey.total;
    m_songs.done = survey.total - std::ssize(m_songs.todo);
    m_songs.leftOut = 0;
    m_songs.bytes = survey.bytes;
    m_holds.trouble = survey.trouble;
    m_looking.isUntidy = true;
    // What is in work counts as done already there, and is not to be done again.
    std::unordered_set<std::uint64_t> inWork;
    for (Listener *listener : m_listeners) {
        if (listener->song)
            inWork.insert(listener->song->song.value);
    }
    std::erase_if(m_songs.todo, [&](const SongSound &song) { return inWork.contains(song.song.value); });
    if (const auto next = std::exchange(m_looking.next, std::nullopt))
        look(*next);
    advance();
}

bool LibraryFingerprinting::mayWork() const
{
    return !m_others.end.isActive() && m_holds.trouble.isEmpty() && !m_holds.byUser && !m_holds.savingPower &&
           !m_holds.notAllowed;
}

void LibraryFingerprinting::advance()
{
    tell();
    if (!mayWork()) {
        endWorkers();
        letOthersWrite();
        if (!m_holds.trouble.isEmpty() && !m_looking.isRunning)
            Q_EMIT finished();
        return;
    }
    if (!m_store) {
        if (m_looking.due)
            look(*m_looking.due);
        return;
    }
    while (std::ssize(m_listeners) < m_workers.count && std::ssize(m_listeners) < std::ssize(m_songs.todo)) {
        Listener &listener = *m_listeners.emplace_back(new Listener(m_workers, this));
        connect(&listener.process, &FingerprintProcess::didHear, this,
                [this, &listener](const Result<HeardSong> &heard) { take(listener, heard); });
    }
    bool isAnyoneBusy = false;
    for (Listener *listener : m_listeners) {
        // What was heard is not piled up where the disk is slow.
        if (!listener->song && !m_songs.todo.empty() && m_songs.beingWritten < 2 * m_workers.count)
            begin(*listener);
        isAnyoneBusy = isAnyoneBusy || listener->song;
    }
    if (isAnyoneBusy || m_songs.beingWritten > 0 || !m_songs.todo.empty())
        return;
    endWorkers();
    tidyUp();
    if (!m_looking.isRunning && !m_looking.isTidying)
        rest();
}

/// Once nothing of ours is under way in the catalog.
void LibraryFingerprinting::letOthersWrite()
{
    if (!m_store || m_looking.isRunning || m_looking.isTidying || m_songs.beingWritten > 0)
        return;
    m_store.reset();
    m_looking.due = m_looking.due.value_or(Beginning::WithWhatIsThere);
}

/// Where it was not us, somebody has left a note, or has written the catalog.
void LibraryFingerprinting::catalogDidChange()
{
    if (m_looking.isRunning || (m_store && !isWantedByOthers()))
        return;
    if (!m_store)
        m_looking.due = m_looking.due.value_or(Beginning::WithWhatIsThere);
    beginTurnOfOthers();
    advance();
}

bool LibraryFingerprinting::isWantedByOthers() const
{
    return m_store && m_workers.isPatient && m_store->isWanted();
}

void LibraryFingerprinting::beginTurnOfOthers()
{
    m_others.end.start();
    m_others.begins.request_stop();
}

void LibraryFingerprinting::lookAgain()
{
    if (isWantedByOthers()) { // what was under way has taken all the time
        m_others.end.start();
        return;
    }
    m_others.begins = {};
    if (m_looking.due && m_holds.trouble.isEmpty()) // in a pause too, to tell what others did
        look(*m_looking.due);
    advance();
}

/// Whoever wants to write into the catalog can do so now.
void LibraryFingerprinting::rest()
{
    m_store.reset();
    m_songs.haveMissed = false;
    Q_EMIT finished();
}

void LibraryFingerprinting::begin(Listener &listener)
{
    listener.song = m_songs.todo.back();
    m_songs.todo.pop_back();
    runInBackground(
        m_pools.reading, &listener.process,
        [library = &m_library, id = listener.song->song] { return library->song(id); },
        [this, &listener](const Result<LibrarySong> &song) {
            if (!listener.song) // it has been ended
                return;
            if (song && song->availability == Availability::Available)
                listener.process.listenTo(song->file.path());
            else
                take(listener, Failure{FailureKind::NotFound, {}});
        });
}

void LibraryFingerprinting::take(Listener &listener, const Result<HeardSong> &heard)
{
    const SongSound song = *std::exchange(listener.song, std::nullopt);
    const auto kind = heard ? FailureKind::Cancelled : heard.failure().kind;
    if (heard) {
        write({.persistentID = song.song.value, .stamp = song.stamp, .seconds = heard->seconds},
              heard->peaks);
    } else if (kind == FailureKind::Malformed || kind == FailureKind::Unsupported) {
        // Remembered, so that nobody listens to it again before it changes.
        qCWarning(log) << "listening to" << song.song.toString() << heard.failure().detail;
        write({.persistentID = song.song.value, .stamp = song.stamp}, {});
    } else if (kind == FailureKind::Unavailable) {
        m_songs.todo.push_back(song);
        giveUp(heard.failure().detail);
        return;
    } else {
        ++m_songs.leftOut;
    }
    advance();
}

void LibraryFingerprinting::write(fingerprint::CatalogSong song, std::vector<fingerprint::Peak> peaks)
{
    ++m_songs.beingWritten;
    m_looking.isUntidy = true;
    runInBackground(
        m_pools.writing, this,
        [store = m_store, song = std::move(song), peaks = std::move(peaks)] {
            const auto failure = store->add(song, peaks);
            return Written{failure, qint64(store->byteCount())};
        },
        [this](const Written &written) {
            --m_songs.beingWritten;
            m_songs.bytes = written.bytes;
            if (written.failure) {
                giveUp(textOf(*written.failure));
                return;
            }
            ++m_songs.done;
            tidyUp();
            advance();
        });
}

/// Small segments become larger ones: while songs come, and at the end.
void LibraryFingerprinting::tidyUp()
{
    if (m_looking.isTidying || !std::exchange(m_looking.isUntidy, false))
        return;
    m_looking.isTidying = true;
    runInBackground(
        m_pools.tidying, this,
        [store = m_store, stop = m_others.begins.get_token()] {
            while (!stop.stop_requested()) {
                const auto merged = store->mergeSome(stop);
                const bool *isMore = std::get_if<bool>(&merged);
                if (!isMore)
                    qCWarning(log) << "merging:" << textOf(std::get<CatalogFailure>(merged));
                if (!isMore || !*isMore)
                    break;
            }
            return qint64(store->byteCount());
        },
        [this](qint64 bytes) {
            m_looking.isTidying = false;
            m_songs.bytes = bytes;
            advance();
        });
}

void LibraryFingerprinting::endWorkers()
{
    for (Listener *listener : std::exchange(m_listeners, {})) {
        if (const auto song = std::exchange(listener->song, std::nullopt))
            m_songs.todo.push_back(*song);
        listener->process.disconnect(this);
        listener->process.end();
        listener->deleteLater(); // it may be telling us something right now
    }
}

void LibraryFingerprinting::giveUp(const QString &why)
{
    qCWarning(log) << "listening to the library:" << why;
    m_holds.trouble = why;
    advance();
}

void LibraryFingerprinting::setConditions(bool isSavingPower, bool isAllowed)
{
    if (m_holds.savingPower == isSavingPower && m_holds.notAllowed == !isAllowed)
        return;
    m_holds.savingPower = isSavingPower;
    m_holds.notAllowed = !isAllowed;
    advance();
}

void LibraryFingerprinting::setPaused(bool isPaused)
{
    if (m_holds.byUser == isPaused)
        return;
    m_holds.byUser = isPaused;
    advance();
}

void LibraryFingerprinting::rebuild()
{
    m_holds.byUser = false;
    endWorkers();
    look(Beginning::Anew);
}

void LibraryFingerprinting::clear()
{
    m_holds.byUser = true;
    endWorkers();
    look(Beginning::Anew);
}

void LibraryFingerprinting::noteMiss()
{
    m_songs.haveMissed = m_songs.done < m_songs.total;
    tell();
}

RecognitionIndexState LibraryFingerprinting::state() const
{
    using Activity = RecognitionIndexState::Activity;
    const bool isAtWork =
        !m_listeners.empty() || m_songs.beingWritten > 0 || m_looking.isRunning || !m_songs.todo.empty();
    const Activity activity = !m_holds.trouble.isEmpty() ? Activity::Unavailable
                              : m_holds.byUser           ? Activity::Paused
                              : !isAtWork                ? Activity::Idle
                              : m_holds.savingPower      ? Activity::SavingPower
                                                         : Activity::Working;
    return {activity, m_songs.done, m_songs.total, m_songs.bytes, m_holds.trouble, m_songs.haveMissed};
}

void LibraryFingerprinting::tell()
{
    if (!m_telling.isActive())
        m_telling.start();
}

} // namespace trackwise
