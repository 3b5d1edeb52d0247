// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopConditions.h"
#include "device/integration/OperatingSystem.h"
#include "support/Test.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSignalSpy>

#include <optional>

namespace {

/// A service with one property, on a connection of its own.
class Service : public QDBusVirtualObject
{
public:
    Service(BusProperty::Address address, const QVariant &value)
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, address.service))
        , m_address(std::move(address))
        , m_value(value)
    {
        m_bus.registerVirtualObject(m_address.path, this);
        m_bus.registerService(m_address.service);
    }
    ~Service() override { QDBusConnection::disconnectFromBus(m_bus.name()); }

    void change(const QVariant &value, bool tellsValue = true)
    {
        m_value = value;
        QDBusMessage signal = QDBusMessage::createSignal(m_address.path, u"org.freedesktop.DBus.Properties"_s,
                                                         u"PropertiesChanged"_s);
        signal
            << m_address.interface << (tellsValue ? QVariantMap{{m_address.property, value}} : QVariantMap())
            << (tellsValue ? QStringList() : QStringList(m_address.property));
        m_bus.send(signal);
    }

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        if (message.arguments() != QVariantList{m_address.interface, m_address.property})
            return false;
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(m_value))));
    }

private:
    QDBusConnection m_bus;
    BusProperty::Address m_address;
    QVariant m_value;
};

const BusProperty::Address reader{u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Status"_s,
                                  u"ScreenReaderEnabled"_s};
const BusProperty::Address portal{u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                                  u"org.freedesktop.portal.PowerProfileMonitor"_s, u"power-saver-enabled"_s};
const QString profilesName = u"org.freedesktop.UPower.PowerProfiles"_s;
const BusProperty::Address profiles{profilesName, u"/org/freedesktop/UPower/PowerProfiles"_s, profilesName,
                                    u"ActiveProfile"_s};
const QString oldName = u"net.hadess.PowerProfiles"_s;
const BusProperty::Address oldProfiles{oldName, u"/net/hadess/PowerProfiles"_s, oldName, u"ActiveProfile"_s};
const BusProperty::Address battery{u"org.freedesktop.UPower"_s,
                                   u"/org/freedesktop/UPower/devices/DisplayDevice"_s,
                                   u"org.freedesktop.UPower.Device"_s, u"WarningLevel"_s};

} // namespace

class tst_DesktopConditions : public QObject
{
    Q_OBJECT

    // Stands for that of the system as well.
    const QDBusConnection m_bus = QDBusConnection::sessionBus();

private Q_SLOTS:
    void holdBothUntilTheDeviceHasAnswered()
    {
        const DesktopConditions conditions(m_bus, m_bus);
        QVERIFY(conditions.isScreenReaderRunning() && conditions.isSavingPower());
        QTRY_VERIFY(!conditions.isScreenReaderRunning() && !conditions.isSavingPower());
        const QDBusConnection none(u"no such bus"_s);
        const DesktopConditions withoutBus(none, none);
        QVERIFY(!withoutBus.isScreenReaderRunning() && !withoutBus.isSavingPower());
    }

    void followTheScreenReader()
    {
        std::optional<Service> status(std::in_place, reader, true);
        const DesktopConditions conditions(m_bus, m_bus);
        QTRY_VERIFY(!conditions.isSavingPower());
        QVERIFY(conditions.isScreenReaderRunning());
        status->change(false);
        QTRY_VERIFY(!conditions.isScreenReaderRunning());
        QSignalSpy changes(&conditions, &DeviceConditions::conditionsDidChange);
        status->change(true, false); // is asked for
        QTRY_VERIFY(conditions.isScreenReaderRunning());
        status.reset();
        QTRY_VERIFY(!conditions.isScreenReaderRunning());
        status.emplace(reader, true);
        QTRY_VERIFY(conditions.isScreenReaderRunning());
        QCOMPARE(changes.size(), 3);
    }

    void askThoseWhoKnowBestAboutPower()
    {
        Service low(battery, 3U);
        const DesktopConditions conditions(m_bus, m_bus);
        QTRY_VERIFY(!conditions.isScreenReaderRunning());
        QVERIFY(conditions.isSavingPower());
        low.change(2U);
        QTRY_VERIFY(!conditions.isSavingPower());
        const Service old(oldProfiles, u"power-saver"_s);
        QTRY_VERIFY(conditions.isSavingPower());
        Service daemon(profiles, u"balanced"_s);
        QTRY_VERIFY(!conditions.isSavingPower());
        std::optional<Service> monitor(std::in_place, portal, true);
        QTRY_VERIFY(conditions.isSavingPower());
        monitor->change(false);
        daemon.change(u"power-saver"_s);
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
