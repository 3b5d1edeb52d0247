// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/bus/BusCalls.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace trackwise {

QDBusMessage busCall(const QString &method)
{
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
}

void whenReplied(const QDBusPendingCall &call, QObject *receiver,
                 std::function<void(const QDBusMessage &)> handler)
{
    auto *watcher = new QDBusPendingCallWatcher(call, receiver);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, receiver,
                     [watcher, handler = std::move(handler)] {
                         watcher->deleteLater();
                         handler(watcher->reply());
                     });
}

void requestName(const QDBusConnection &bus, const QString &name, QObject *receiver,
                 std::function<void(bool isTaken)> handler)
{
    // A flag and an answer of org.freedesktop.DBus.RequestName.
    constexpr uint doNotQueue = 4;
    constexpr uint nameExists = 3;
    constexpr int patienceMs = 2'000;
    const QDBusMessage request = busCall(QStringLiteral("RequestName")) << name << doNotQueue;
    whenReplied(bus.asyncCall(request, patienceMs), receiver,
                [handler = std::move(handler)](const QDBusMessage &reply) {
                    handler(reply.arguments().value(0) == nameExists);
                });
}

} // namespace trackwise
