// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/LibraryRecognition.h"

#include "device/audio/SoundResampler.h"
#include "fingerprint/Listening.h"

#include <QLoggingCategory>

#include <algorithm>
#include <array>
#include <atomic>
#include <semaphore>
#include <thread>

namespace trackwise {

namespace {

Q_LOGGING_CATEGORY(log, "trackwise.recognizer", QtFatalMsg)

/// Between the microphone's thread, which may not wait, and the one that compares: pieces of sound, more than
/// five seconds of them at any rate. What does not fit is lost.
class PieceQueue
{
public:
    struct Piece
    {
        std::array<float, Microphone::samplesOfPiece> samples;
        std::size_t count = 0;
        int rateHz = 0;
    };

    void push(const HeardSound &heard)
    {
        const std::size_t end = m_end.load(std::memory_order_relaxed);
        if (end - m_begin.load(std::memory_order_acquire) == m_pieces.size())
            return;
        Piece &piece = m_pieces[end % m_pieces.size()];
        piece.count = std::min(heard.samples.size(), piece.samples.size());
        std::copy_n(heard.samples.begin(), piece.count, piece.samples.begin());
        piece.rateHz = heard.rateHz;
        m_end.store(end + 1, std::memory_order_release);
        m_filled.release();
    }
    /// Waits for the next; nothing when it was ended.
    template <typename Take>
    bool take(Take &&take)
    {
        m_filled.acquire();
        const std::size_t begin = m_begin.load(std::memory_order_relaxed);
        if (m_isEnded.load() || begin == m_end.load(std::memory_order_acquire))
            return false;
        take(m_pieces[begin % m_pieces.size()]);
        m_begin.store(begin + 1, std::memory_order_release);
        return true;
    }
    void end()
    {
        m_isEnded.store(true);
        m_filled.release();
    }

private:
    std::vector<Piece> m_pieces = std::vector<Piece>(512);
    std::atomic<std::size_t> m_begin = 0;
    std::atomic<std::size_t> m_end = 0;
    std::atomic<bool> m_isEnded = false;
    std::counting_semaphore<> m_filled{0};
};

std::optional<QString> textOf(const std::string &text)
{
    return text.empty() ? std::nullopt : std::optional(QString::fromStdString(text));
}

MatchedMediaItem itemOf(const fingerprint::Catalog &catalog, fingerprint::SongNumber number,
                        const fingerprint::SongNaming &naming)
{
    fingerprint::CatalogSong song = catalog.song(number);
    std::optional<PersistentID> librarySong;
    if (catalog.originOf(number).empty()) {
        librarySong = PersistentID{song.persistentID};
        naming(song);
    }
    return {textOf(song.catalogID), textOf(song.title), textOf(song.artist), librarySong};
}

ClipAnswer answerOf(const fingerprint::Listening &listening, bool isMatch)
{
    ClipAnswer answer{.score = double(listening.score()), .threshold = double(listening.scoreAsked())};
    if (isMatch)
        answer.match = matchOf(listening.catalog(), listening.match().song, double(listening.beginning()));
    return answer;
}

} // namespace

/// From start() to the answer: a thread of its own compares what the microphone hears.
class LibraryRecognition::Attempt
{
public:
    explicit Attempt(LibraryRecognition &session)
        : m_session(session)
        , m_thread([this] { listen(); })
    {}
    ~Attempt()
    {
        m_queue.end();
        m_thread.join();
    }
    void take(const HeardSound &heard)
    {
        hasHeard = true;
        m_queue.push(heard);
    }
    /// Later, and no more once the attempt was stopped. From any of its threads.
    template <typename Signals>
    void tell(Signals signals)
    {
        QMetaObject::invokeMethod(&m_listener, std::move(signals), Qt::QueuedConnection);
    }

    bool hasHeard = false; ///< of the microphone's thread

private:
    using Answer = fingerprint::Listening::Answer;

    void listen()
    {
        auto catalog = m_session.m_sources.catalog();
        if (!catalog) {
            qCWarning(log).noquote() << "no recognition:" << catalog.failure().detail;
            tell([&session = m_session] { Q_EMIT session.didNotFind(tr("Couldn't read known songs")); });
            return;
        }
        fingerprint::Listening listening(*std::move(catalog));
        SoundResampler resampler;
        std::vector<float> sound;
        Answer answer = Answer::Undecided;
        const auto hear = [&](const PieceQueue::Piece &piece) {
            const std::span samples(piece.samples.data(), piece.count);
            tell([this, level = levelOf(samples, piece.rateHz)] { Q_EMIT m_session.didHear(level); });
            sound.clear();
            resampler.add(samples, piece.rateHz, sound);
            answer = listening.hear(sound);
        };
        while (answer == Answer::Undecided) {
            if (!m_queue.take(hear))
                return;
        }
        const bool isMatch = answer == Answer::Match;
        std::vector<MatchedMediaItem> found;
        if (isMatch)
            found.push_back(itemOf(listening.catalog(), listening.match().song, m_session.m_sources.naming));
        tell([&session = m_session, found, decided = answerOf(listening, isMatch)] {
            Q_EMIT session.didDecide(decided);
            if (found.empty())
                Q_EMIT session.didNotFind(std::nullopt);
            else
                Q_EMIT session.didFind(found);
        });
    }

    LibraryRecognition &m_session;
    QObject m_listener; ///< of the session's thread
    PieceQueue m_queue;
    std::thread m_thread; ///< the last: it uses the others
};

LibraryRecognition::LibraryRecognition(Sources sources)
    : m_sources(std::move(sources))
{}

LibraryRecognition::~LibraryRecognition()
{
    stop();
}

std::optional<Failure> LibraryRecognition::start()
{
    stop();
    m_attempt = std::make_unique<Attempt>(*this);
    m_microphone.start(
        m_sources.input(), [attempt = m_attempt.get()](const HeardSound &heard) { attempt->take(heard); },
        [this, attempt = m_attempt.get()](const Failure &failure) {
            attempt->tell([this, hasHeard = attempt->hasHeard, why = explained(failure)] {
                if (hasHeard)
                    Q_EMIT didBreakOff(why);
                else
                    Q_EMIT didNotFind(why);
            });
        });
    auto failure = m_microphone.failureToStart();
    if (failure) {
        stop();
        failure->detail = explained(*failure);
    }
    return failure;
}

void LibraryRecognition::stop()
{
    m_microphone.stop();
    m_attempt.reset();
}

bool LibraryRecognition::isRunning() const
{
    return m_microphone.isRunning();
}

QString LibraryRecognition::explained(const Failure &failure)
{
    switch (failure.kind) {
    case FailureKind::Busy:
        return tr("Microphone already in use");
    case FailureKind::NotFound:
        return tr("No microphone found");
    default:
        return tr("No sound on this device");
    }
}

} // namespace trackwise
