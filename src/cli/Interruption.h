// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <csignal>
#include <functional>

namespace trackwise::cli {

/// Lets what runs in an event loop end in good order when the user interrupts the command.
class Interruption
{
public:
    /// @p stop is called in @p loop, and again until that ends.
    Interruption(QEventLoop &loop, const std::function<void()> &stop)
    {
        // A signal handler may do no more than this; the timer does the rest.
        std::signal(SIGINT, [](int) { s_hasCome = 1; });
        std::signal(SIGTERM, [](int) { s_hasCome = 1; });
        QObject::connect(&m_look, &QTimer::timeout, &loop, [stop] {
            if (hasCome())
                stop();
        });
        m_look.start(std::chrono::milliseconds(100));
    }

    [[nodiscard]] static bool hasCome() { return s_hasCome != 0; }

private:
    static inline volatile std::sig_atomic_t s_hasCome = 0;
    QTimer m_look;
};

} // namespace trackwise::cli
