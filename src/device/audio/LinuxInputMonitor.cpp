// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/LinuxInputMonitor.h"

namespace trackwise {

LinuxInputMonitor::LinuxInputMonitor()
{
    connect(&m_watch, &SoundInputWatch::didChange, this, [this](const SoundInputs &inputs) {
        m_inputs = availableInputs(inputs);
        if (m_measured && !m_microphone.isRunning())
            measure(*m_measured); // there may be one now
        Q_EMIT inputsDidChange();
    });
}

void LinuxInputMonitor::measure(const QString &choice)
{
    m_measured = choice;
    const auto tap = [this](const HeardSound &heard) { tell(levelOf(heard.samples, heard.rateHz)); };
    m_microphone.start(choice.toUtf8(), tap, [this](const Failure &) { tell({0, SoundMeter::longEnough}); });
}

void LinuxInputMonitor::stopMeasuring()
{
    m_measured.reset();
    m_microphone.stop();
}

/// Called on the microphone's thread.
void LinuxInputMonitor::tell(const SoundLevel &level)
{
    QMetaObject::invokeMethod(
        this, [this, level] { Q_EMIT didHear(level); }, Qt::QueuedConnection);
}

} // namespace trackwise
