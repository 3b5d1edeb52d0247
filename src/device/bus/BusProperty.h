// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariant>

namespace trackwise {

/// One property of an object on a bus, followed while this lives, also when its service comes and goes. Asks
/// asynchronously and starts no service. Main thread.
class BusProperty : public QObject
{
    Q_OBJECT

public:
    struct Address
    {
        QString service;
        QString path;
        QString interface;
        QString property;
    };

    BusProperty(const QDBusConnection &bus, Address address, QObject *parent = nullptr);

    /// Whether the service has answered, or has had its time to (two seconds).
    [[nodiscard]] bool isAnswered() const { return m_isAnswered; }
    /// As PlainValue.h says; invalid where there is no such property.
    [[nodiscard]] const QVariant &value() const { return m_value; }

Q_SIGNALS:
    void didChange();

private Q_SLOTS:
    void ownerDidChange(const QString &service, const QString &oldOwner, const QString &newOwner);
    void propertiesDidChange(const QString &interface, const QVariantMap &changed,
                             const QStringList &invalidated);

private:
    void ask();
    void setValue(const QVariant &value);

    QDBusConnection m_bus;
    Address m_address;
    QVariant m_value;
    bool m_isAnswered = false;
    unsigned m_latestQuestion = 0;
};

} // namespace trackwise
