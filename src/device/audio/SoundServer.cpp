// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundServer.h"

#include <pulse/operation.h>
#include <pulse/proplist.h>

#include <utility>

namespace trackwise {

namespace {

void release(pa_operation *operation)
{
    if (operation)
        pa_operation_unref(operation);
}

} // namespace

void turn(pa_mainloop *loop, std::chrono::microseconds longest, const std::atomic<bool> &isWanted)
{
    if (pa_mainloop_prepare(loop, int(longest.count())) < 0)
        return;
    if (!isWanted)
        pa_mainloop_wakeup(loop); // preparing takes back what woke it up before
    if (pa_mainloop_poll(loop) >= 0)
        (void)pa_mainloop_dispatch(loop);
}

void CloseStream::operator()(pa_stream *stream) const
{
    pa_stream_set_state_callback(stream, nullptr, nullptr);
    pa_stream_set_read_callback(stream, nullptr, nullptr);
    pa_stream_set_overflow_callback(stream, nullptr, nullptr);
    pa_stream_disconnect(stream);
    pa_stream_unref(stream);
}

void SoundServer::Disconnect::operator()(pa_context *context) const
{
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_set_subscribe_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(context);
}

SoundServer::SoundServer(pa_mainloop *loop, std::function<void(const SoundInputs &)> didChange)
    : m_context(pa_context_new(pa_mainloop_get_api(loop), "Trackwise"))
    , m_didChange(std::move(didChange))
{
    if (!m_context)
        return;
    pa_context_set_state_callback(context(), &SoundServer::stateDidChange, this);
    pa_context_set_subscribe_callback(context(), &SoundServer::somethingDidChange, this);
    // A failure is told through the state.
    (void)pa_context_connect(context(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
}

SoundServer::~SoundServer() = default;

bool SoundServer::isGone() const
{
    return !m_context || !PA_CONTEXT_IS_GOOD(pa_context_get_state(context()));
}

void SoundServer::stateDidChange(pa_context *context, void *self)
{
    if (pa_context_get_state(context) != PA_CONTEXT_READY)
        return;
    release(pa_context_subscribe(
        context, pa_subscription_mask_t(PA_SUBSCRIPTION_MASK_SERVER | PA_SUBSCRIPTION_MASK_SOURCE), nullptr,
        nullptr));
    static_cast<SoundServer *>(self)->ask();
}

void SoundServer::somethingDidChange(pa_context *, pa_subscription_event_type_t, std::uint32_t, void *self)
{
    static_cast<SoundServer *>(self)->ask();
}

void SoundServer::ask()
{
    m_mustAskAgain = std::exchange(m_isAsking, true);
    if (!m_mustAskAgain)
        release(pa_context_get_server_info(context(), &SoundServer::serverDidAnswer, this));
}

void SoundServer::serverDidAnswer(pa_context *context, const pa_server_info *info, void *self)
{
    auto *server = static_cast<SoundServer *>(self);
    server->m_told = {};
    if (info) {
        server->m_told.defaultInput = info->default_source_name;
        server->m_told.defaultOutput = info->default_sink_name;
    }
    release(pa_context_get_source_info_list(context, &SoundServer::inputWasTold, self));
}

void SoundServer::inputWasTold(pa_context *, const pa_source_info *info, int end, void *self)
{
    auto *server = static_cast<SoundServer *>(self);
    if (end == 0) {
        server->m_told.all.push_back({info->name, QString::fromUtf8(info->description),
                                      int(info->sample_spec.rate), int(info->sample_spec.channels),
                                      info->monitor_of_sink_name});
        return;
    }
    server->m_isAsking = false;
    if (server->m_mustAskAgain) {
        server->ask();
        return;
    }
    if (std::exchange(server->m_isKnown, true) && server->m_known == server->m_told)
        return;
    server->m_known = server->m_told;
    server->m_didChange(server->m_known);
}

} // namespace trackwise
