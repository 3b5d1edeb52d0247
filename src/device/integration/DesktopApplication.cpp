// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopApplication.h"

#include "device/integration/DesktopApplicationAdaptor.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QLoggingCategory>

#include <utility>

namespace trackwise {

namespace {

Q_LOGGING_CATEGORY(log, "trackwise.integration", QtFatalMsg)

// A flag and an answer of org.freedesktop.DBus.RequestName.
constexpr uint doNotQueue = 4;
constexpr uint nameExists = 3;

constexpr int busPatienceMs = 2'000;
// One that is just starting reads its library before it answers.
constexpr int applicationPatienceMs = 5'000;

constexpr const char *applicationInterface = "org.freedesktop.Application";
constexpr const char *tokenKey = "activation-token";
// Where Qt looks for the leave to bring a window to the front under Wayland.
constexpr const char *tokenVariable = "XDG_ACTIVATION_TOKEN";

template <typename Done>
void await(const QDBusPendingCall &call, QObject *receiver, Done done)
{
    const auto *watcher = new QDBusPendingCallWatcher(call, receiver);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, receiver,
                     [done = std::move(done)](QDBusPendingCallWatcher *finished) {
                         finished->deleteLater();
                         done(*finished);
                     });
}

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

void DesktopApplication::start(const QStringList &addresses, Handler handler)
{
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(
            this, [handler = std::move(handler)] { handler(Standing::Running); }, Qt::QueuedConnection);
        return;
    }
    // The object comes before the name: whoever finds the name finds it.
    m_bus.registerObject(path(), this, QDBusConnection::ExportAdaptors);
    const QDBusMessage request =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                       QStringLiteral("/org/freedesktop/DBus"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"))
        << m_appId << doNotQueue;
    await(m_bus.asyncCall(request, busPatienceMs), this,
          [this, addresses, handler = std::move(handler)](const QDBusPendingReply<uint> &reply) {
              if (!reply.isError() && reply.value() == nameExists)
                  handOver(addresses, handler);
              else
                  handler(Standing::Running);
          });
}

void DesktopApplication::handOver(const QStringList &addresses, const Handler &handler)
{
    QDBusMessage request = QDBusMessage::createMethodCall(
        m_appId, path(), QLatin1StringView(applicationInterface),
        addresses.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
    request.setAutoStartService(false);
    if (!addresses.isEmpty())
        request << addresses;
    QVariantMap platformData;
    if (const QString token = qEnvironmentVariable(tokenVariable); !token.isEmpty())
        platformData.insert(QLatin1StringView(tokenKey), token);
    request << platformData;
    await(m_bus.asyncCall(request, applicationPatienceMs), this, [handler](const QDBusPendingReply<> &reply) {
        if (reply.isError())
            qCWarning(log) << "handing over to the app that runs:" << reply.error().message();
        handler(reply.isError() ? Standing::Running : Standing::HandedOver);
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
