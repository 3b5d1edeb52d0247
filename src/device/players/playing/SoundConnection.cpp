// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/playing/SoundConnection.h"

#include <QAudioDevice>
#include <QAudioSink>

#include <dlfcn.h>
#include <pulse/context.h>
#include <pulse/mainloop.h>
#include <pulse/stream.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

namespace trackwise {

namespace {

/// An attempt to connect to @p server, or to the usual one when null. It fails at once where nobody listens.
struct Attempt
{
    explicit Attempt(const char *server)
        : isConnecting(pa_context_connect(context.get(), server, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0)
    {}

    std::unique_ptr<pa_mainloop, decltype(&pa_mainloop_free)> loop{pa_mainloop_new(), &pa_mainloop_free};
    std::unique_ptr<pa_context, decltype(&pa_context_unref)> context{
        pa_context_new(pa_mainloop_get_api(loop.get()), "Trackwise"), &pa_context_unref};
    bool isConnecting;
};

} // namespace

bool isSoundServerThere()
{
    return Attempt(nullptr).isConnecting;
}

bool canPlayTo(const QAudioDevice &output)
{
    if (output.isNull())
        return false;
    QAudioSink sink(output, output.preferredFormat());
    (void)sink.start();
    const bool works = sink.error() == QAudio::NoError;
    sink.stop();
    return works;
}

#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0)

namespace {

// Where a player's thread writes what the server is not there to take.
thread_local std::vector<char> nowhere;
constexpr std::size_t mostBytesNowhere = 65536;

/// What Qt Multimedia has to be told when the server is gone; both of its connections, that of the list of
/// devices and that of the sound, set theirs once they are ready.
struct Listener
{
    pa_context_notify_cb_t stateDidChange;
    void *connection;
};
std::mutex listenersMutex;
std::vector<Listener> listeners;

void remember(const Listener &listener)
{
    const std::lock_guard lock(listenersMutex);
    std::erase_if(listeners, [&](const Listener &old) { return old.connection == listener.connection; });
    listeners.push_back(listener);
}

template <typename Function>
Function *ofLibrary(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

} // namespace

void connectSoundAgain()
{
    const Attempt failed("unix:/dev/null");
    const std::lock_guard lock(listenersMutex);
    for (const Listener &listener : listeners)
        listener.stateDidChange(failed.context.get(), listener.connection); // sees it failed, posts an event
}

// These stand before PulseAudio's own for the whole program.

extern "C" void pa_context_set_state_callback(pa_context *context, pa_context_notify_cb_t callback,
                                              void *userdata)
{
    static const auto set =
        ofLibrary<decltype(pa_context_set_state_callback)>("pa_context_set_state_callback");
    if (callback && pa_context_get_state(context) == PA_CONTEXT_READY)
        remember({callback, userdata});
    set(context, callback, userdata);
}

// When the server goes while a song plays, writing fails, and QPulseAudioSink::write() of Qt 6.4 returns from
// that failure without unlocking the connection: whatever touches it later, the new connection and the
// program's end among it, would wait for ever. So writing never fails here; the loss is told by
// DefaultOutput.

extern "C" int pa_stream_begin_write(pa_stream *stream, void **data, std::size_t *bytes)
{
    static const auto beginWrite = ofLibrary<decltype(pa_stream_begin_write)>("pa_stream_begin_write");
    const std::size_t wanted = *bytes;
    if (const int result = beginWrite(stream, data, bytes); result >= 0)
        return result;
    *bytes = std::min(wanted, mostBytesNowhere);
    nowhere.resize(mostBytesNowhere);
    *data = nowhere.data();
    return 0;
}

extern "C" int pa_stream_write(pa_stream *stream, const void *data, std::size_t bytes, pa_free_cb_t release,
                               std::int64_t offset, pa_seek_mode_t seek)
{
    static const auto write = ofLibrary<decltype(pa_stream_write)>("pa_stream_write");
    if (!nowhere.empty() && data == nowhere.data())
        return 0;
    (void)write(stream, data, bytes, release, offset, seek);
    return 0;
}

#else

// Left out until somebody has looked: stopping and starting the server while a song plays shows it.
#warning "SoundConnection.cpp was made for Qt 6.4: does this Qt survive that the sound server goes?"

void connectSoundAgain() {}

#endif

} // namespace trackwise
