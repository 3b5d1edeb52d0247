// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/FeedbackHaptics.h"

#include <QDBusMessage>
#include <QVariantMap>

#include <utility>

namespace trackwise {

namespace {

QDBusMessage callOfDaemon(const QString &interface, const QString &method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.sigxcpu.Feedback"),
                                          QStringLiteral("/org/sigxcpu/Feedback"), interface, method);
}

// Names of events that freedesktop.org lists, as far as the daemon's own theme knows what to do for them.
QString eventFor(HapticNotification notification)
{
    switch (notification) {
    case HapticNotification::Success:
        return QStringLiteral("message-new-instant");
    case HapticNotification::Warning:
        return QStringLiteral("message-missed-instant");
    case HapticNotification::Error:
        break;
    }
    return QStringLiteral("bell-terminal");
}

} // namespace

FeedbackHaptics::FeedbackHaptics(QString appId, const QDBusConnection &bus)
    : m_appId(std::move(appId))
    , m_bus(bus)
{}

void FeedbackHaptics::prepare()
{
    if (!std::exchange(m_isPrepared, true))
        m_bus.send(callOfDaemon(QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping")));
}

void FeedbackHaptics::notify(HapticNotification notification)
{
    constexpr int ownTime = -1; // as long as the theme says
    QDBusMessage call =
        callOfDaemon(QStringLiteral("org.sigxcpu.Feedback"), QStringLiteral("TriggerFeedback"));
    // In a louder profile some events have a sound too, which nobody wants amid music.
    const QVariantMap hints{{QStringLiteral("profile"), QStringLiteral("quiet")}};
    m_bus.send(call << m_appId << eventFor(notification) << hints << ownTime);
}

} // namespace trackwise
