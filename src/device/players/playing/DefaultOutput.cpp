// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/playing/DefaultOutput.h"

#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/operation.h>
#include <pulse/subscribe.h>
#include <pulse/thread-mainloop.h>

#include <utility>

namespace trackwise {

/// The callbacks run on the mainloop's thread and touch nothing but this; the destructor ends that thread
/// before the rest goes.
struct DefaultOutput::Connection
{
    explicit Connection(DefaultOutput &watch);
    ~Connection();
    Q_DISABLE_COPY_MOVE(Connection)

    static void stateDidChange(pa_context *context, void *self);
    static void serverDidChange(pa_context *context, pa_subscription_event_type_t, uint32_t, void *self);
    static void serverDidAnswer(pa_context *, const pa_server_info *info, void *self);

    DefaultOutput &watch;
    QByteArray name;
    pa_threaded_mainloop *loop = nullptr;
    pa_context *context = nullptr;
};

namespace {

void release(pa_operation *operation)
{
    if (operation)
        pa_operation_unref(operation);
}

} // namespace

DefaultOutput::Connection::Connection(DefaultOutput &owner)
    : watch(owner)
{
    loop = pa_threaded_mainloop_new();
    if (!loop)
        return;
    context = pa_context_new(pa_threaded_mainloop_get_api(loop), "Trackwise output");
    if (!context)
        return;
    pa_context_set_state_callback(context, &Connection::stateDidChange, this);
    pa_context_set_subscribe_callback(context, &Connection::serverDidChange, this);
    // A failure is told through the state.
    (void)pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    (void)pa_threaded_mainloop_start(loop);
}

DefaultOutput::Connection::~Connection()
{
    if (!loop)
        return;
    pa_threaded_mainloop_stop(loop);
    if (context) {
        pa_context_set_state_callback(context, nullptr, nullptr);
        pa_context_disconnect(context);
        pa_context_unref(context);
    }
    pa_threaded_mainloop_free(loop);
}

void DefaultOutput::Connection::stateDidChange(pa_context *context, void *self)
{
    auto *connection = static_cast<Connection *>(self);
    switch (pa_context_get_state(context)) {
    case PA_CONTEXT_READY:
        release(pa_context_subscribe(context, PA_SUBSCRIPTION_MASK_SERVER, nullptr, nullptr));
        release(pa_context_get_server_info(context, &Connection::serverDidAnswer, self));
        break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
        QMetaObject::invokeMethod(&connection->watch, &DefaultOutput::serverDidVanish, Qt::QueuedConnection);
        break;
    default:
        break;
    }
}

void DefaultOutput::Connection::serverDidChange(pa_context *context, pa_subscription_event_type_t, uint32_t,
                                                void *self)
{
    release(pa_context_get_server_info(context, &Connection::serverDidAnswer, self));
}

void DefaultOutput::Connection::serverDidAnswer(pa_context *, const pa_server_info *info, void *self)
{
    auto *connection = static_cast<Connection *>(self);
    if (!info || !info->default_sink_name || connection->name == info->default_sink_name)
        return;
    connection->name = info->default_sink_name;
    QMetaObject::invokeMethod(
        &connection->watch,
        [watch = &connection->watch, name = connection->name] { Q_EMIT watch->didChange(name); },
        Qt::QueuedConnection);
}

DefaultOutput::DefaultOutput(QObject *parent)
    : QObject(parent)
    , m_connection(std::make_unique<Connection>(*this))
{}

DefaultOutput::~DefaultOutput() = default;

} // namespace trackwise
