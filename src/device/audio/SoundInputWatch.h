// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/audio/SoundInput.h"

#include <QObject>

#include <memory>

namespace trackwise {

/// Tells what there is to listen to, for those who choose. Main thread; it waits on a thread of its own.
class SoundInputWatch : public QObject
{
    Q_OBJECT

public:
    explicit SoundInputWatch(QObject *parent = nullptr);
    ~SoundInputWatch() override;

Q_SIGNALS:
    /// Sent for the first time soon after construction. Without inputs while there is no sound server.
    void didChange(const trackwise::SoundInputs &inputs);

private:
    class Listener;
    std::unique_ptr<Listener> m_listener;
};

} // namespace trackwise
