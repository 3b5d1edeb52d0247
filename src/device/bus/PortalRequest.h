// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>

namespace trackwise {

/// How a request to the desktop portal ended: the portal's own numbers of org.freedesktop.portal.Request,
/// and that it has taken none.
enum class PortalEnd { Done, Cancelled, Failed, NotTaken };

/// A call of the desktop portal whose outcome comes later, as a signal of a request object. The portal does
/// not answer while the user decides, for as long as that takes. Main thread.
class PortalRequest : public QObject
{
    Q_OBJECT

public:
    using Handler = std::function<void(PortalEnd)>;

    /// On a bus that is connected: calls @p method of the portal's @p interface with @p arguments and, behind
    /// them, @p options. @p handler is called once, later, or never when @p parent, which owns the request,
    /// goes first.
    static void make(const QDBusConnection &bus, const QString &interface, const QString &method,
                     const QVariantList &arguments, QVariantMap options, QObject *parent, Handler handler);

private Q_SLOTS:
    void responded(uint response, const QVariantMap &results);

private:
    PortalRequest(const QDBusConnection &bus, Handler handler, QObject *parent);
    void listenAt(const QString &path);
    void end(PortalEnd end);

    QDBusConnection m_bus;
    Handler m_handler;
    QString m_path;
};

} // namespace trackwise
