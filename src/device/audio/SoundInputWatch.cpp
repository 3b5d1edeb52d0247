// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundInputWatch.h"

#include "device/audio/SoundServer.h"

#include <atomic>
#include <thread>

namespace trackwise {

class SoundInputWatch::Listener
{
public:
    explicit Listener(SoundInputWatch &watch)
        : m_watch(watch)
        , m_loop(pa_mainloop_new())
        , m_thread([this] { run(); })
    {}
    ~Listener()
    {
        m_isWanted = false;
        if (m_loop)
            pa_mainloop_wakeup(m_loop.get());
        m_thread.join();
    }
    Q_DISABLE_COPY_MOVE(Listener)

private:
    void run()
    {
        std::unique_ptr<SoundServer> server;
        if (m_loop)
            server = std::make_unique<SoundServer>(m_loop.get(), [this](const SoundInputs &i) { tell(i); });
        while (m_isWanted && server && !server->isGone())
            (void)pa_mainloop_iterate(m_loop.get(), 1, nullptr);
        if (m_isWanted)
            tell({});
    }
    void tell(const SoundInputs &inputs)
    {
        const auto send = [watch = &m_watch, inputs] { Q_EMIT watch->didChange(inputs); };
        QMetaObject::invokeMethod(&m_watch, send, Qt::QueuedConnection);
    }

    SoundInputWatch &m_watch;
    MainloopPtr m_loop;
    std::atomic<bool> m_isWanted = true;
    std::thread m_thread;
};

SoundInputWatch::SoundInputWatch(QObject *parent)
    : QObject(parent)
    , m_listener(std::make_unique<Listener>(*this))
{}

SoundInputWatch::~SoundInputWatch() = default;

} // namespace trackwise
