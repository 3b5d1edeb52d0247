// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/bus/BusProperty.h"

#include "device/bus/BusCalls.h"
#include "device/bus/PlainValue.h"

#include <QDBusVariant>

namespace trackwise {

namespace {
constexpr int patienceMs = 2'000;
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
} // namespace

BusProperty::BusProperty(const QDBusConnection &bus, Address address, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_address(std::move(address))
    , m_isAnswered(!bus.isConnected())
{
    if (m_isAnswered)
        return;
    // No sender is named for the property: naming one would make Qt wait for the bus to say who that is.
    m_bus.connect({}, m_address.path, propertiesInterface, QStringLiteral("PropertiesChanged"),
                  {m_address.interface}, QStringLiteral("sa{sv}as"), this,
                  SLOT(propertiesDidChange(QString, QVariantMap, QStringList)));
    const QString busItself = QStringLiteral("org.freedesktop.DBus");
    m_bus.connect(busItself, {}, busItself, QStringLiteral("NameOwnerChanged"), {m_address.service},
                  QStringLiteral("sss"), this, SLOT(ownerDidChange(QString, QString, QString)));
    ask();
}

void BusProperty::ask()
{
    QDBusMessage question = QDBusMessage::createMethodCall(m_address.service, m_address.path,
                                                           propertiesInterface, QStringLiteral("Get"));
    question << m_address.interface << m_address.property;
    question.setAutoStartService(false);
    whenReplied(m_bus.asyncCall(question, patienceMs), this,
                [this, asked = ++m_latestQuestion](const QDBusMessage &reply) {
                    if (asked != m_latestQuestion)
                        return; // something newer is known
                    setValue(reply.type() == QDBusMessage::ReplyMessage
                                 ? plainValue(reply.arguments().value(0))
                                 : QVariant());
                });
}

void BusProperty::setValue(const QVariant &value)
{
    ++m_latestQuestion;
    const bool isNews = !m_isAnswered || value != m_value;
    m_isAnswered = true;
    m_value = value;
    if (isNews)
        Q_EMIT didChange();
}

void BusProperty::ownerDidChange(const QString & /*service*/, const QString & /*oldOwner*/,
                                 const QString &newOwner)
{
    if (newOwner.isEmpty())
        setValue({});
    else
        ask();
}

void BusProperty::propertiesDidChange(const QString & /*interface*/, const QVariantMap &changed,
                                      const QStringList &invalidated)
{
    if (changed.contains(m_address.property))
        setValue(plainValue(changed.value(m_address.property)));
    else if (invalidated.contains(m_address.property))
        ask();
}

} // namespace trackwise
