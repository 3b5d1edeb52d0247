// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/Microphone.h"

#include "device/audio/SoundPieces.h"
#include "device/audio/SoundServer.h"

#include <atomic>
#include <future>
#include <thread>
#include <utility>

namespace trackwise {

namespace {

using Clock = std::chrono::steady_clock;

/// A server that went is mostly started anew by the system at once.
constexpr std::chrono::milliseconds untilNextAttempt{100};

/// Connecting takes some milliseconds. Somebody waits who wants to go on.
constexpr std::chrono::milliseconds longestStart{200};

} // namespace

/// One attempt to listen. All but the atomic members belongs to its thread.
class Microphone::Capture
{
public:
    struct Order
    {
        InputChoice choice;
        std::chrono::milliseconds patience;
        DidFail didFail;
    };
    Capture(Order order, Tap tap);
    ~Capture();
    Capture(const Capture &) = delete;
    Capture &operator=(const Capture &) = delete;

    std::atomic<bool> isRunning = true;
    std::atomic<float> level = 0;
    std::atomic<int> overruns = 0;
    std::promise<std::optional<Failure>> start; ///< why it failed, or nothing

private:
    void run();
    void wait(Clock::duration longest);
    void connect();
    void lookAround();
    void lookAfterServer();
    void lookAfterStream();
    void listenTo(const SoundInput &input);
    void fail(FailureKind kind, const char *detail);
    void settle(const std::optional<Failure> &failure);
    void take();
    static void soundDidCome(pa_stream *, std::size_t, void *self);
    static void soundWasLost(pa_stream *, void *self);

    Order m_order;
    MainloopPtr m_loop;
    std::unique_ptr<SoundServer> m_server; ///< nothing while it is away
    std::optional<SoundInputs> m_inputs;   ///< as they were told last
    std::optional<SoundInput> m_input;     ///< the one that is listened to
    StreamPtr m_stream;
    SoundPieces m_pieces;
    bool m_isSettled = false; ///< whether it has started, or not
    Clock::time_point m_deadline = Clock::now() + m_order.patience;
    std::thread m_thread;
};

Microphone::Capture::Capture(Order order, Tap tap)
    : m_order(std::move(order))
    , m_loop(pa_mainloop_new())
    , m_pieces(std::move(tap))
    , m_thread([this] { run(); })
{}

Microphone::Capture::~Capture()
{
    isRunning = false;
    if (m_loop)
        pa_mainloop_wakeup(m_loop.get());
    m_thread.join(); // it ends what it began
}

void Microphone::Capture::run()
{
    if (m_loop)
        connect();
    if (!m_server || m_server->isGone())
        fail(FailureKind::Unavailable, "no sound server");
    while (isRunning) {
        const auto time = m_deadline - Clock::now();
        wait(m_server ? time : std::min<Clock::duration>(time, untilNextAttempt));
        lookAround();
    }
    m_stream.reset();
    m_server.reset();
}

void Microphone::Capture::wait(Clock::duration longest)
{
    const auto time = std::max(longest, Clock::duration::zero());
    turn(m_loop.get(), std::chrono::ceil<std::chrono::microseconds>(time), isRunning);
}

void Microphone::Capture::connect()
{
    m_server =
        std::make_unique<SoundServer>(m_loop.get(), [this](const SoundInputs &inputs) { m_inputs = inputs; });
}

/// Does what callbacks could not: what they are called by cannot go meanwhile.
void Microphone::Capture::lookAround()
{
    lookAfterServer();
    if (m_server)
        lookAfterStream();
    if (Clock::now() < m_deadline || !isRunning)
        return;
    if (m_stream)
        fail(FailureKind::Busy, "the input gives no sound");
    else if (m_server && pa_context_get_state(m_server->context()) == PA_CONTEXT_READY)
        fail(FailureKind::NotFound, "no input any more");
    else
        fail(FailureKind::Unavailable, "no answer of the sound server");
}

void Microphone::Capture::lookAfterServer()
{
    if (!m_server)
        connect();
    if (!m_server->isGone())
        return;
    m_stream.reset();
    m_input.reset();
    m_inputs.reset();
    m_server.reset();
}

void Microphone::Capture::lookAfterStream()
{
    if (m_stream && pa_stream_get_state(m_stream.get()) == PA_STREAM_READY)
        settle(std::nullopt);
    if (m_stream && !PA_STREAM_IS_GOOD(pa_stream_get_state(m_stream.get()))) {
        m_stream.reset(); // its input went; what takes its place is told next
        m_input.reset();
    }
    if (!m_inputs)
        return;
    const auto wanted = chosenInput(*std::exchange(m_inputs, std::nullopt), m_order.choice);
    if (!wanted && !m_pieces.hasBegun())
        fail(FailureKind::NotFound, "no input"); // later there may be one in a moment
    if (!wanted) {
        m_stream.reset();
        m_input.reset();
    } else if (!m_input || m_input->name != wanted->name) {
        listenTo(*wanted);
    }
}

void Microphone::Capture::listenTo(const SoundInput &input)
{
    const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, std::uint32_t(input.rateHz),
                                std::uint8_t(input.channels)};
    m_input = input;
    pa_channel_map channels;
    pa_channel_map_init_extend(&channels, format.channels, PA_CHANNEL_MAP_DEFAULT);
    m_stream.reset(pa_stream_new(m_server->context(), "Music Recognition", &format, &channels));
    if (!m_stream)
        return; // nothing comes, which has its end
    m_pieces.begin(input.rateHz, input.channels);
    pa_stream_set_read_callback(m_stream.get(), &Capture::soundDidCome, this);
    pa_stream_set_overflow_callback(m_stream.get(), &Capture::soundWasLost, this);
    constexpr auto usual = std::uint32_t(-1);
    const pa_buffer_attr buffer{usual, usual, usual, usual,
                                std::uint32_t(samplesOfPiece * pa_frame_size(&format) / 2)};
    (void)pa_stream_connect_record(m_stream.get(), input.name.constData(), &buffer,
                                   pa_stream_flags_t(PA_STREAM_ADJUST_LATENCY | PA_STREAM_NO_REMAP_CHANNELS));
}

void Microphone::Capture::soundDidCome(pa_stream *, std::size_t, void *self)
{
    static_cast<Capture *>(self)->take();
}

void Microphone::Capture::soundWasLost(pa_stream *, void *self)
{
    ++static_cast<Capture *>(self)->overruns;
}

void Microphone::Capture::take()
{
    pa_stream *stream = m_stream.get();
    const std::size_t frame = pa_frame_size(pa_stream_get_sample_spec(stream));
    const void *sound = nullptr;
    std::size_t bytes = 0;
    while (isRunning && pa_stream_peek(stream, &sound, &bytes) >= 0 && bytes > 0) {
        m_pieces.take(static_cast<const float *>(sound), bytes / frame);
        level = m_pieces.level();
        (void)pa_stream_drop(stream);
        m_deadline = Clock::now() + m_order.patience;
    }
}

void Microphone::Capture::fail(FailureKind kind, const char *detail)
{
    if (!isRunning.exchange(false))
        return;
    const Failure failure{kind, QString::fromLatin1(detail)};
    m_order.didFail(failure);
    settle(failure);
}

void Microphone::Capture::settle(const std::optional<Failure> &failure)
{
    if (!std::exchange(m_isSettled, true))
        start.set_value(failure);
}

Microphone::Microphone(std::chrono::milliseconds patience)
    : m_patience(patience)
{}

Microphone::~Microphone() = default;

void Microphone::start(const InputChoice &choice, Tap tap, DidFail didFail)
{
    stop();
    m_capture =
        std::make_unique<Capture>(Capture::Order{choice, m_patience, std::move(didFail)}, std::move(tap));
}

std::optional<Failure> Microphone::failureToStart()
{
    auto failure = m_capture->start.get_future();
    const bool isKnown = failure.wait_for(longestStart) == std::future_status::ready;
    return isKnown ? failure.get() : std::nullopt;
}

void Microphone::stop()
{
    m_capture.reset();
}

bool Microphone::isRunning() const
{
    return m_capture && m_capture->isRunning;
}

float Microphone::level() const
{
    return m_capture ? m_capture->level.load() : 0;
}

int Microphone::overruns() const
{
    return m_capture ? m_capture->overruns.load() : 0;
}

} // namespace trackwise
