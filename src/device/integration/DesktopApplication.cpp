// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopApplication.h"

#include "device/bus/BusCalls.h"
#include "device/integration/DesktopApplicationAdaptor.h"

#include <QLoggingCategory>

#include <utility>

namespace trackwise {

namespace {

Q_LOGGING_CATEGORY(log, "trackwise.integration", QtFatalMsg)

// One that is just starting reads its library before it answers.
constexpr int applicationPatienceMs = 5'000;

constexpr const char *applicationInterface = "org.freedesktop.Application";
constexpr const char *tokenKey = "activation-token";
// Where Qt looks for the leave to bring a window to the front under Wayland.
constexpr const char *tokenVariable = "XDG_ACTIVATION_TOKEN";

} // namespace

DesktopApplication::DesktopApplication(QString appId, const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_appId(std::move(appId))
    , m_bus(bus)
{
    new DesktopApplicationAdaptor(*this);
}

DesktopApplication::~DesktopApplication()
{
    m_bus.unregisterObject(path());
}

// Where callers of org.freedesktop.Application look for it.
QString DesktopApplication::path() const
{
    QString path = u'/' + m_appId;
    return path.replace(u'.', u'/').replace(u'-', u'_');
}

void DesktopApplication::start(const Purpose &purpose, Handler handler)
{
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(
            this, [handler = std::move(handler)] { handler(Standing::Running); }, Qt::QueuedConnection);
        return;
    }
    // The object comes before the name: whoever finds the name finds it.
    m_bus.registerObject(path(), this, QDBusConnection::ExportAdaptors);
    requestName(m_bus, m_appId, this, [this, purpose, handler = std::move(handler)](bool isTaken) {
        if (isTaken)
            handOver(purpose, handler);
        else
            handler(Standing::Running);
    });
}

QDBusMessage DesktopApplication::requestFor(const Purpose &purpose) const
{
    const auto request = [this](const char *method) {
        return QDBusMessage::createMethodCall(m_appId, path(), QLatin1StringView(applicationInterface),
                                              QLatin1StringView(method));
    };
    if (!purpose.action.isEmpty())
        return request("ActivateAction") << purpose.action << QVariantList();
    return purpose.addresses.isEmpty() ? request("Activate") : request("Open") << purpose.addresses;
}

void DesktopApplication::handOver(const Purpose &purpose, const Handler &handler)
{
    QDBusMessage request = requestFor(purpose);
    request.setAutoStartService(false);
    QVariantMap platformData;
    if (const QString token = qEnvironmentVariable(tokenVariable); !token.isEmpty())
        platformData.insert(QLatin1StringView(tokenKey), token);
    request << platformData;
    whenReplied(m_bus.asyncCall(request, applicationPatienceMs), this, [handler](const QDBusMessage &reply) {
        const bool hasFailed = reply.type() == QDBusMessage::ErrorMessage;
        if (hasFailed)
            qCWarning(log) << "handing over to the app that runs:" << reply.errorMessage();
        handler(hasFailed ? Standing::Running : Standing::HandedOver);
    });
}

void DesktopApplication::setRequests(ApplicationRequests requests)
{
    m_requests = std::move(requests);
    for (const Received &received : std::exchange(m_waiting, {}))
        carryOut(received);
}

void DesktopApplication::receive(std::function<void(const ApplicationRequests &)> request,
                                 const QVariantMap &platformData)
{
    const Received received{std::move(request), platformData.value(QLatin1StringView(tokenKey)).toString()};
    if (m_requests.activate)
        carryOut(received);
    else
        m_waiting.push_back(received);
}

void DesktopApplication::carryOut(const Received &received) const
{
    if (!received.activationToken.isEmpty())
        qputenv(tokenVariable, received.activationToken.toUtf8());
    received.request(m_requests);
    qunsetenv(tokenVariable); // it counts once
}

void DesktopApplicationAdaptor::Activate(const QVariantMap &platformData)
{
    m_application.receive([](const ApplicationRequests &requests) { requests.activate(); }, platformData);
}

void DesktopApplicationAdaptor::Open(const QStringList &uris, const QVariantMap &platformData)
{
    m_application.receive([uris](const ApplicationRequests &requests) { requests.open(uris); }, platformData);
}

void DesktopApplicationAdaptor::ActivateAction(const QString &name, const QVariantList &,
                                               const QVariantMap &platformData)
{
    m_application.receive([name](const ApplicationRequests &requests) { requests.activateAction(name); },
                          platformData);
}

} // namespace trackwise
