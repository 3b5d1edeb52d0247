// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/PortalMailComposer.h"

#include "device/bus/BusCalls.h"
#include "device/bus/PlainValue.h"
#include "device/bus/PortalRequest.h"

namespace trackwise {

namespace {

constexpr int patienceMs = 10'000; // as long as a portal that sleeps may take to start
constexpr uint firstVersionWithAddresses = 3;
const QString emailInterface = QStringLiteral("org.freedesktop.portal.Email");

} // namespace

PortalMailComposer::PortalMailComposer(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{}

void PortalMailComposer::compose(const MailMessage &message, std::function<void()> whenUnavailable)
{
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(this, std::move(whenUnavailable), Qt::QueuedConnection);
        return;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << emailInterface << QStringLiteral("version");
    whenReplied(m_bus.asyncCall(question, patienceMs), this,
                [this, message, whenUnavailable = std::move(whenUnavailable)](const QDBusMessage &reply) {
                    const uint version = plainValue(reply.arguments().value(0)).toUInt();
                    if (reply.type() == QDBusMessage::ReplyMessage && version > 0)
                        request(message, version, whenUnavailable);
                    else
                        whenUnavailable();
                });
}

void PortalMailComposer::request(const MailMessage &message, uint version,
                                 const std::function<void()> &whenUnavailable)
{
    QVariantMap options{{QStringLiteral("subject"), message.subject}, {QStringLiteral("body"), message.body}};
    if (version >= firstVersionWithAddresses)
        options.insert(QStringLiteral("addresses"), QStringList(message.recipient));
    else
        options.insert(QStringLiteral("address"), message.recipient);
    PortalRequest::make(m_bus, emailInterface, QStringLiteral("ComposeEmail"),
                        {QString() /* no parent window */}, options, this, [whenUnavailable](PortalEnd end) {
                            if (end == PortalEnd::Failed || end == PortalEnd::NotTaken)
                                whenUnavailable();
                        });
}

} // namespace trackwise
