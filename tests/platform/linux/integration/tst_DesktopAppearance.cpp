// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/integration/DesktopAppearance.h"
#include "platform/linux/integration/StoredDeviceSettings.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace trackwise;

using Spaces = QMap<QString, QVariantMap>;

struct Rgb
{
    double red = 0;
    double green = 0;
    double blue = 0;
};
Q_DECLARE_METATYPE(Rgb)

static QDBusArgument &operator<<(QDBusArgument &argument, const Rgb &c)
{
    argument.beginStructure();
    argument << c.red << c.green << c.blue;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, Rgb &c)
{
    argument.beginStructure();
    argument >> c.red >> c.green >> c.blue;
    argument.endStructure();
    return argument;
}

namespace {

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString gnomeAccessibility = QStringLiteral("org.gnome.desktop.a11y.interface");
const QString kde = QStringLiteral("org.kde.kdeglobals.KDE");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");

/// A portal that answers with what it is given, on a connection of its own.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(Spaces settings)
        : m_settings(std::move(settings))
    {
        m_bus.registerObject(portalPath, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(portalName);
    }
    ~Portal() override { m_bus.unregisterService(portalName); }

    void change(const QString &space, const QString &key, const QVariant &value)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            portalPath, QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
        m_bus.send(signal << space << key << QVariant::fromValue(QDBusVariant(value)));
    }

public Q_SLOTS:
    Spaces ReadAll(const QStringList &spaces)
    {
        Spaces answer;
        for (const QString &space : spaces) {
            if (m_settings.contains(space))
                answer.insert(space, m_settings.value(space));
        }
        return answer;
    }

private:
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
    Spaces m_settings;
};

QVariant inVariant(const QVariant &value)
{
    return QVariant::fromValue(QDBusVariant(value));
}

} // namespace

class tst_DesktopAppearance : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_file;
    std::unique_ptr<StoredDeviceSettings> m_settings;

private Q_SLOTS:
    void initTestCase()
    {
        qDBusRegisterMetaType<Spaces>();
        qDBusRegisterMetaType<Rgb>();
    }
    // Not sooner: the thread of the bus would look at the portal while that goes.
    void cleanup() { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }
    void init()
    {
        m_file = std::make_unique<QSettings>(m_folder.filePath(QStringLiteral("device.ini")),
                                             QSettings::IniFormat);
        m_file->clear();
        m_settings = std::make_unique<StoredDeviceSettings>(*m_file);
        qunsetenv("XDG_CURRENT_DESKTOP");
    }

    void readsWhatTheDesktopSays_data()
    {
        QTest::addColumn<DesktopSettings>("said");
        QTest::addColumn<DesktopLook>("expected");
        const auto key = [](const QString &space, const char *name) {
            return std::pair(space, QString::fromLatin1(name));
        };
        const auto row = [](const char *name, const DesktopSettings &said, const DesktopLook &expected) {
            QTest::newRow(name) << said << expected;
        };
        row("nothing", {}, {});
        row("dark", {{key(appearance, "color-scheme"), 1u}}, {.isDark = true});
        row("light", {{key(appearance, "color-scheme"), 2u}}, {.isDark = false});
        row("GNOME's light", {{key(appearance, "color-scheme"), 0u}}, {.isDark = false});
        row("GNOME's word only", {{key(gnome, "color-scheme"), QStringLiteral("prefer-dark")}},
            {.isDark = true});
        row("scheme of a wrong type", {{key(appearance, "color-scheme"), QStringLiteral("1")}}, {});
        row("contrast", {{key(appearance, "contrast"), 1u}}, {.prefersHighContrast = true});
        row("GNOME's contrast", {{key(gnomeAccessibility, "high-contrast"), true}},
            {.prefersHighContrast = true});
        row("motion", {{key(appearance, "reduced-motion"), 1u}}, {.prefersReducedMotion = true});
        row("GNOME's motion", {{key(gnome, "enable-animations"), false}}, {.prefersReducedMotion = true});
        row("KDE's motion", {{key(kde, "AnimationDurationFactor"), QStringLiteral("0")}},
            {.prefersReducedMotion = true});
        row("KDE's usual speed", {{key(kde, "AnimationDurationFactor"), QStringLiteral("0.7")}}, {});
        row("KDE says no number", {{key(kde, "AnimationDurationFactor"), QString()}}, {});
        row("text scale", {{key(gnome, "text-scaling-factor"), 1.25}},
            {.textSize = TextSize::ExtraExtraLarge});
        row("text scale of a wrong type", {{key(gnome, "text-scaling-factor"), QStringLiteral("2")}}, {});
        row("accent", {{key(appearance, "accent-color"), QColor(Qt::blue)}}, {.accent = QColor(Qt::blue)});
        row("accent that is none", {{key(appearance, "accent-color"), QVariant()}}, {});
    }
    void readsWhatTheDesktopSays()
    {
        QFETCH(DesktopSettings, said);
        QFETCH(DesktopLook, expected);
        QVERIFY(desktopLook(said) == expected);
    }

    void choosesTheNearestTextSize_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<TextSize>("size");
        QTest::newRow("usual") << 1.0 << TextSize::Large;
        QTest::newRow("tiny") << 0.5 << TextSize::ExtraSmall;
        QTest::newRow("a little more") << 1.05 << TextSize::Large;
        QTest::newRow("more") << 1.1 << TextSize::ExtraLarge;
        QTest::newRow("one and a half") << 1.5 << TextSize::Accessibility1;
        QTest::newRow("double") << 2.0 << TextSize::Accessibility2;
        QTest::newRow("huge") << 9.0 << TextSize::Accessibility5;
        QTest::newRow("zero") << 0.0 << TextSize::Large;
        QTest::newRow("negative") << -1.0 << TextSize::Large;
        QTest::newRow("no number") << qQNaN() << TextSize::Large;
    }
    void choosesTheNearestTextSize()
    {
        QFETCH(double, scale);
        QTEST(textSizeForScale(scale), "size");
    }

    void followsThePortal()
    {
        Portal portal({{appearance,
                        {{QStringLiteral("color-scheme"), 1u},
                         {QStringLiteral("accent-color"), QVariant::fromValue(Rgb{0, 0.5, 1})}}},
                       {gnome, {{QStringLiteral("text-scaling-factor"), inVariant(1.25)}}}});
        const DesktopAppearance look(*m_settings);
        QVERIFY(!look.isDark()); // nobody has waited for the answer
        QTRY_VERIFY(look.isDark());
        QCOMPARE(look.textSize(), TextSize::ExtraExtraLarge);
        QCOMPARE(look.accent(), std::optional(QColor::fromRgbF(0, 0.5F, 1)));

        QSignalSpy changes(&look, &Appearance::appearanceDidChange);
        portal.change(appearance, QStringLiteral("color-scheme"), 2u);
        QTRY_VERIFY(!look.isDark());
        portal.change(appearance, QStringLiteral("accent-color"), QVariant::fromValue(Rgb{-1, -1, -1}));
        QTRY_COMPARE(look.accent(), std::nullopt);
        portal.change(gnome, QStringLiteral("font-name"), QStringLiteral("Sans 11"));
        portal.change(gnome, QStringLiteral("enable-animations"), inVariant(false));
        QTRY_VERIFY(look.prefersReducedMotion());
        QCOMPARE(changes.size(), 3); // the font changes nothing here
    }

    void asksThePaletteWhereThereIsNoPortal()
    {
        const QPalette before = QGuiApplication::palette();
        QGuiApplication::setPalette(QPalette(Qt::white, Qt::black, Qt::white, Qt::black, Qt::gray, Qt::white,
                                             Qt::white, Qt::black, Qt::black));
        const DesktopAppearance look(*m_settings, QDBusConnection(QStringLiteral("no such bus")));
        QGuiApplication::setPalette(before);
        QVERIFY(look.isDark());
        QCOMPARE(look.textSize(), TextSize::Large);
        QVERIFY(!look.accent());
    }

    void readsKdesAnimationSpeed()
    {
        QFile globals(m_folder.filePath(QStringLiteral("kdeglobals")));
        QVERIFY(globals.open(QIODevice::WriteOnly));
        globals.write("[General]\nColorScheme=BreezeLight\n\n[KDE]\nAnimationDurationFactor=0\n");
        globals.close();
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        qputenv("XDG_CURRENT_DESKTOP", "KDE");
        const DesktopAppearance look(*m_settings, QDBusConnection(QStringLiteral("no such bus")));
        QTRY_VERIFY(look.prefersReducedMotion());
    }

    void theUsersOwnChoiceComesFirst()
    {
        Portal portal({{appearance, {{QStringLiteral("color-scheme"), 1u}}},
                       {gnome, {{QStringLiteral("enable-animations"), false}}}});
        const DesktopAppearance look(*m_settings);
        QTRY_VERIFY(look.isDark() && look.prefersReducedMotion());

        m_settings->setAppearance({.theme = ThemeChoice::Light,
                                   .textSize = TextSize::Accessibility3,
                                   .motion = MotionChoice::Full});
        QVERIFY(!look.isDark());
        QVERIFY(!look.prefersReducedMotion());
        QCOMPARE(look.textSize(), TextSize::Accessibility3);
        m_settings->setAppearance({});
        QVERIFY(look.isDark());
        QVERIFY(look.prefersReducedMotion());
        QCOMPARE(look.textSize(), TextSize::Large);
    }

    void keepsChoicesInTheFile()
    {
        const AppearanceChoices choices{
            .theme = ThemeChoice::Dark, .textSize = TextSize::ExtraSmall, .motion = MotionChoice::Reduced};
        m_settings->setAppearance(choices);
        m_settings->setMicrophoneAccess(AccessChoice::Denied);
        m_settings->setIgnoredPlayers({QStringLiteral("vlc"), QStringLiteral("mpv"), QStringLiteral("vlc")});
        m_file->sync();
        QSettings again(m_file->fileName(), QSettings::IniFormat);
        const StoredDeviceSettings reread(again);
        QCOMPARE(reread.appearance(), choices);
        QCOMPARE(reread.microphoneAccess(), AccessChoice::Denied);
        QCOMPARE(reread.ignoredPlayers(), QStringList({QStringLiteral("mpv"), QStringLiteral("vlc")}));

        again.setValue(QStringLiteral("Appearance/Theme"), QStringLiteral("purple"));
        again.setValue(QStringLiteral("Appearance/TextSize"), 99);
        QCOMPARE(reread.appearance(), (AppearanceChoices{.motion = MotionChoice::Reduced}));
    }
};

QTEST_MAIN(tst_DesktopAppearance)
#include "tst_DesktopAppearance.moc"
