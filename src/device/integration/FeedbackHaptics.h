// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/NotificationHaptics.h"

#include <QDBusConnection>

namespace trackwise {

/// Haptics of phones, by the feedback daemon ("org.sigxcpu.Feedback", interface of version 0.0.3). Where it
/// is not there, nothing is felt. Main thread; calls on the bus do not block.
class FeedbackHaptics : public NotificationHaptics
{
public:
    FeedbackHaptics(QString appId, const QDBusConnection &bus);

    /// The first time, starts the daemon where that sleeps.
    void prepare() override;
    void notify(HapticNotification notification) override;

private:
    QString m_appId;
    QDBusConnection m_bus;
    bool m_isPrepared = false;
};

} // namespace trackwise
