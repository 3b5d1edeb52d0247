// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/bus/PortalRequest.h"

#include "device/bus/BusCalls.h"

#include <QDBusObjectPath>

#include <utility>

namespace trackwise {

namespace {

// Starting a portal that sleeps takes a second or two; one that says nothing for longer will not.
constexpr int patienceMs = 10'000;

QString newToken()
{
    static unsigned count = 0;
    return QStringLiteral("trackwise%1").arg(++count);
}

// Where the request will be, by the documentation of org.freedesktop.portal.Request.
QString requestPath(const QDBusConnection &bus, const QString &token)
{
    QString sender = bus.baseService().mid(1);
    sender.replace(u'.', u'_');
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

} // namespace

PortalRequest::PortalRequest(const QDBusConnection &bus, Handler handler, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_handler(std::move(handler))
{}

void PortalRequest::make(const QDBusConnection &bus, const QString &interface, const QString &method,
                         const QVariantList &arguments, QVariantMap options, QObject *parent, Handler handler)
{
    auto *request = new PortalRequest(bus, std::move(handler), parent);
    const QString token = newToken();
    request->listenAt(requestPath(bus, token)); // before the call: the response may come with the reply
    options.insert(QStringLiteral("handle_token"), token);
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                       QStringLiteral("/org/freedesktop/portal/desktop"), interface, method);
    call.setArguments(arguments + QVariantList{options});
    whenReplied(bus.asyncCall(call, patienceMs), request, [request](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ErrorMessage)
            request->end(PortalEnd::NotTaken);
        else // portals older than 0.9 choose a path of their own
            request->listenAt(reply.arguments().value(0).value<QDBusObjectPath>().path());
    });
}

void PortalRequest::listenAt(const QString &path)
{
    if (path == m_path || path.isEmpty())
        return;
    m_path = path;
    m_bus.connect({}, path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"),
                  this, SLOT(responded(uint, QVariantMap)));
}

void PortalRequest::responded(uint response, const QVariantMap & /*results*/)
{
    end(response == 0 ? PortalEnd::Done : response == 1 ? PortalEnd::Cancelled : PortalEnd::Failed);
}

void PortalRequest::end(PortalEnd end)
{
    deleteLater();
    if (const Handler handler = std::exchange(m_handler, nullptr))
        handler(end);
}

} // namespace trackwise
