// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>

#include <functional>

namespace trackwise {

/// A call of a method of the bus itself.
[[nodiscard]] QDBusMessage busCall(const QString &method);

/// Calls @p handler once, later, with the reply to @p call or the error that came in its place. Not when
/// @p receiver goes first.
void whenReplied(const QDBusPendingCall &call, QObject *receiver,
                 std::function<void(const QDBusMessage &)> handler);

/// Takes @p name for this program, unless another one has it. An answer that fails counts as not taken.
void requestName(const QDBusConnection &bus, const QString &name, QObject *receiver,
                 std::function<void(bool isTaken)> handler);

} // namespace trackwise
