// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/audio/SoundInput.h"

#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>
#include <pulse/stream.h>
#include <pulse/subscribe.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>

namespace trackwise {

struct FreeMainloop
{
    void operator()(pa_mainloop *loop) const { pa_mainloop_free(loop); }
};
using MainloopPtr = std::unique_ptr<pa_mainloop, FreeMainloop>;

/// Lets happen what there is to happen, for which it waits @p longest (below zero: for ever). It ends at once
/// where @p isWanted is false; whoever makes it so, on any thread, wakes up the loop then.
void turn(pa_mainloop *loop, std::chrono::microseconds longest, const std::atomic<bool> &isWanted);

struct CloseStream
{
    void operator()(pa_stream *stream) const;
};
using StreamPtr = std::unique_ptr<pa_stream, CloseStream>;

/// A connection to the sound server, by the PulseAudio protocol, which PipeWire understands too: follows
/// which inputs there are. Everything happens on the thread that runs the loop.
class SoundServer
{
public:
    /// @p didChange is called with the inputs once they are known, and whenever they differ.
    SoundServer(pa_mainloop *loop, std::function<void(const SoundInputs &)> didChange);
    ~SoundServer();
    SoundServer(const SoundServer &) = delete;
    SoundServer &operator=(const SoundServer &) = delete;

    /// The server is not there, or not any more; nothing happens then.
    [[nodiscard]] bool isGone() const;
    [[nodiscard]] pa_context *context() const { return m_context.get(); }

private:
    void ask();
    static void stateDidChange(pa_context *context, void *self);
    static void somethingDidChange(pa_context *, pa_subscription_event_type_t, std::uint32_t, void *self);
    static void serverDidAnswer(pa_context *, const pa_server_info *info, void *self);
    static void inputWasTold(pa_context *, const pa_source_info *info, int end, void *self);

    struct Disconnect
    {
        void operator()(pa_context *context) const;
    };
    std::unique_ptr<pa_context, Disconnect> m_context;
    std::function<void(const SoundInputs &)> m_didChange;
    SoundInputs m_known;
    SoundInputs m_told; ///< of the answers that are coming in
    bool m_isAsking = false;
    bool m_mustAskAgain = false; ///< something changed meanwhile
    bool m_isKnown = false;
};

} // namespace trackwise
