// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/audio/Microphone.h"
#include "device/audio/SoundInputWatch.h"
#include "platform/InputMonitor.h"

namespace trackwise {

/// The inputs of the sound server, and the level of one of them.
class LinuxInputMonitor final : public InputMonitor
{
    Q_OBJECT

public:
    LinuxInputMonitor();

    [[nodiscard]] std::optional<AvailableInputs> inputs() const override { return m_inputs; }
    void measure(const QString &choice) override;
    void stopMeasuring() override;

private:
    void tell(const SoundLevel &level);

    std::optional<AvailableInputs> m_inputs;
    std::optional<QString> m_measured;
    SoundInputWatch m_watch;
    Microphone m_microphone;
};

} // namespace trackwise
