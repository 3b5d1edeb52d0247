// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopConditions.h"
#include "device/integration/OperatingSystem.h"
#include "support/Test.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSignalSpy>

#include <memory>

namespace {

const QString properties = u"org.freedesktop.DBus.Properties"_s;

/// A service with one property, on a connection of its own.
class Service : public QDBusVirtualObject
{
public:
    Service(const QString &name, QString path, QString interface, QString property, const QVariant &value)
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name))
        , m_path(std::move(path))
        , m_interface(std::move(interface))
        , m_property(std::move(property))
        , m_value(value)
    {
        m_bus.registerVirtualObject(m_path, this);
        m_bus.registerService(name);
    }
    ~Service() override { QDBusConnection::disconnectFromBus(m_bus.name()); }

    void change(const QVariant &value, bool tellsValue = true)
    {
        m_value = value;
        QDBusMessage signal = QDBusMessage::createSignal(m_path, properties, u"PropertiesChanged"_s);
        signal << m_interface << (tellsValue ? QVariantMap{{m_property, value}} : QVariantMap())
               << (tellsValue ? QStringList() : QStringList(m_property));
        m_bus.send(signal);
    }

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        if (message.arguments() != QVariantList{m_interface, m_property})
            return false;
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(m_value))));
    }

private:
    QDBusConnection m_bus;
    QString m_path;
    QString m_interface;
    QString m_property;
    QVariant m_value;
};

std::unique_ptr<Service> reader(bool isEnabled)
{
    return std::make_unique<Service>(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Status"_s,
                                     u"ScreenReaderEnabled"_s, isEnabled);
}
std::unique_ptr<Service> portal(bool isSaving)
{
    return std::make_unique<Service>(
        u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
        u"org.freedesktop.portal.PowerProfileMonitor"_s, u"power-saver-enabled"_s, isSaving);
}
std::unique_ptr<Service> profiles(const QString &active)
{
    const QString name = u"org.freedesktop.UPower.PowerProfiles"_s;
    return std::make_unique<Service>(name, u"/org/freedesktop/UPower/PowerProfiles"_s, name,
                                     u"ActiveProfile"_s, active);
}
std::unique_ptr<Service> oldProfiles(const QString &active)
{
    const QString name = u"net.hadess.PowerProfiles"_s;
    return std::make_unique<Service>(name, u"/net/hadess/PowerProfiles"_s, name, u"ActiveProfile"_s, active);
}
std::unique_ptr<Service> battery(uint warningLevel)
{
    return std::make_unique<Service>(u"org.freedesktop.UPower"_s,
                                     u"/org/freedesktop/UPower/devices/DisplayDevice"_s,
                                     u"org.freedesktop.UPower.Device"_s, u"WarningLevel"_s, warningLevel);
}

/// The private bus stands for that of the system as well.
struct Conditions : DesktopConditions
{
    Conditions()
        : DesktopConditions(QDBusConnection::sessionBus(), QDBusConnection::sessionBus())
    {}
};

} // namespace

class tst_DesktopConditions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdBothUntilTheDeviceHasAnswered()
    {
        const Conditions conditions;
        QVERIFY(conditions.isScreenReaderRunning() && conditions.isSavingPower());
        QTRY_VERIFY(!conditions.isScreenReaderRunning() && !conditions.isSavingPower());
        const QDBusConnection none(u"no such bus"_s);
        const DesktopConditions withoutBus(none, none);
        QVERIFY(!withoutBus.isScreenReaderRunning() && !withoutBus.isSavingPower());
    }

    void followTheScreenReader()
    {
        auto status = reader(true);
        const Conditions conditions;
        QTRY_VERIFY(!conditions.isSavingPower());
        QVERIFY(conditions.isScreenReaderRunning());
        QSignalSpy changes(&conditions, &DeviceConditions::conditionsDidChange);
        status->change(false);
        QTRY_VERIFY(!conditions.isScreenReaderRunning());
        status->change(true, false); // is asked for
        QTRY_VERIFY(conditions.isScreenReaderRunning());
        status.reset();
        QTRY_VERIFY(!conditions.isScreenReaderRunning());
        status = reader(true);
        QTRY_VERIFY(conditions.isScreenReaderRunning());
        QCOMPARE(changes.size(), 4);
    }

    void askThoseWhoKnowBestAboutPower()
    {
        const auto low = battery(3);
        const Conditions conditions;
        QTRY_VERIFY(!conditions.isScreenReaderRunning());
        QVERIFY(conditions.isSavingPower());
        low->change(2U);
        QTRY_VERIFY(!conditions.isSavingPower());
        const auto old = oldProfiles(u"power-saver"_s);
        QTRY_VERIFY(conditions.isSavingPower());
        const auto daemon = profiles(u"balanced"_s);
        QTRY_VERIFY(!conditions.isSavingPower());
        auto monitor = portal(true);
        QTRY_VERIFY(conditions.isSavingPower());
        monitor->change(false);
        daemon->change(u"power-saver"_s);
        QTRY_VERIFY(!conditions.isSavingPower());
        monitor.reset();
        QTRY_VERIFY(conditions.isSavingPower());
    }

    void theSystemIsNamedAsItNamesItself()
    {
        const std::tuple<QByteArray, QString, QString> rows[]{
            {"PRETTY_NAME=\"X\"\nNAME=\"Debian GNU/Linux\"\nVERSION_ID=\"12\"\n", u"Debian GNU/Linux"_s,
             u"12"_s},
            {"# NAME=No\nNAME=Fedora\nVERSION_ID=39\r\n", u"Fedora"_s, u"39"_s},
            {"NAME='A $B \\'\nBUILD_ID=rolling", u"A $B \\"_s, u"rolling"_s},
            {"NAME=\"A \\\"B\\\" \\$C\"\nVERSION_CODENAME=sid\nVERSION_ID=\n", u"A \"B\" $C"_s, u"sid"_s},
            {"NAME=\n=x\nVERSION_ID", u"Linux"_s, u"0"_s},
        };
        for (const auto &[file, name, version] : rows)
            QCOMPARE(describeSystem(file), (SystemDescription{name, version}));
        QCOMPARE(describeThisSystem({u"/nonexistent"_s}), (SystemDescription{u"Linux"_s, u"0"_s}));
    }

    void aTabletIsTouchedAndNothingElse()
    {
        using Type = QInputDevice::DeviceType;
        const QSizeF tablet(800, 500);
        QVERIFY(isTouchTablet({Type::Keyboard, Type::TouchScreen}, tablet));
        QVERIFY(!isTouchTablet({Type::TouchScreen}, {800, 499}));
        QVERIFY(!isTouchTablet({Type::TouchScreen, Type::Mouse}, tablet));
        QVERIFY(!isTouchTablet({Type::TouchScreen, Type::TouchPad}, tablet));
        QVERIFY(!isTouchTablet({Type::Keyboard}, tablet));
    }
};

QTEST_GUILESS_MAIN(tst_DesktopConditions)
#include "tst_DesktopConditions.moc"
