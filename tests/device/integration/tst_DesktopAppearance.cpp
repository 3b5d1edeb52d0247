// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopAppearance.h"
#include "device/integration/PortalSettings.h"
#include "device/integration/StoredDeviceSettings.h"
#include "support/Files.h"
#include "support/Test.h"

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

#include <array>
#include <cmath>
#include <memory>

using Spaces = QMap<QString, QVariantMap>;

namespace {

const QString appearance = u"org.freedesktop.appearance"_s;
const QString gnome = u"org.gnome.desktop.interface"_s;
const QString gnomeAccessibility = u"org.gnome.desktop.a11y.interface"_s;
const QString kde = u"org.kde.kdeglobals.KDE"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString portalName = u"org.freedesktop.portal.Desktop"_s;

/// A structure of three numbers.
QVariant rgb(double red, double green, double blue)
{
    QDBusArgument color;
    color.beginStructure();
    color << red << green << blue;
    color.endStructure();
    return QVariant::fromValue(color);
}

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
        QDBusMessage signal =
            QDBusMessage::createSignal(portalPath, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        m_bus.send(signal << space << key << QVariant::fromValue(QDBusVariant(value)));
    }

public Q_SLOTS:
    Spaces ReadAll(const QStringList &) { return m_settings; }

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
    Spaces m_settings;
};

} // namespace

class tst_DesktopAppearance : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_file;
    std::unique_ptr<StoredDeviceSettings> m_settings;

private Q_SLOTS:
    void initTestCase() { qDBusRegisterMetaType<Spaces>(); }
    // Not sooner: the thread of the bus would look at the portal while that goes.
    void cleanup() { QDBusConnection::disconnectFromBus(u"portal"_s); }
    void init()
    {
        m_file = std::make_unique<QSettings>(m_folder.filePath(u"device.ini"_s), QSettings::IniFormat);
        m_file->clear();
        m_settings = std::make_unique<StoredDeviceSettings>(*m_file);
        qunsetenv("XDG_CURRENT_DESKTOP");
    }

    void readsWhatTheDesktopSays()
    {
        const std::tuple<QString, QString, QVariant, DesktopLook> rows[]{
            {appearance, u"color-scheme"_s, 1u, {.isDark = true}},
            {appearance, u"color-scheme"_s, 2u, {.isDark = false}},
            {appearance, u"color-scheme"_s, 0u, {.isDark = false}},
            {gnome, u"color-scheme"_s, u"prefer-dark"_s, {.isDark = true}},
            {appearance, u"color-scheme"_s, u"1"_s, {}},
            {appearance, u"contrast"_s, 1u, {.prefersHighContrast = true}},
            {gnomeAccessibility, u"high-contrast"_s, true, {.prefersHighContrast = true}},
            {appearance, u"reduced-motion"_s, 1u, {.prefersReducedMotion = true}},
            {gnome, u"enable-animations"_s, false, {.prefersReducedMotion = true}},
            {kde, u"AnimationDurationFactor"_s, u"0"_s, {.prefersReducedMotion = true}},
            {kde, u"AnimationDurationFactor"_s, u"0.7"_s, {}},
            {kde, u"AnimationDurationFactor"_s, QString(), {}},
            {gnome, u"text-scaling-factor"_s, 1.25, {.textSize = TextSize::ExtraExtraLarge}},
            {gnome, u"text-scaling-factor"_s, u"2"_s, {}},
            {appearance, u"accent-color"_s, QVariantList{0.0, 0.0, 1.0}, {.accent = QColor(Qt::blue)}},
            {appearance, u"accent-color"_s, QVariantList{0.0, 0.0}, {}},
        };
        QVERIFY(desktopLook({}) == DesktopLook());
        for (const auto &[space, key, value, look] : rows)
            QVERIFY2(desktopLook({{{space, key}, value}}) == look, qPrintable(key));
    }

    void choosesTheNearestTextSize()
    {
        constexpr std::array scales{0.82, 0.88, 0.94, 1.0, 1.12, 1.24, 1.35, 1.64, 1.94, 2.35, 2.76, 3.12};
        for (std::size_t i = 1; i < scales.size(); ++i) { // sizes are perceived by their ratio
            const double middle = std::sqrt(scales[i - 1] * scales[i]);
            QCOMPARE(textSizeForScale(middle * 0.999), TextSize(i - 1));
            QCOMPARE(textSizeForScale(middle * 1.001), TextSize(i));
        }
        QCOMPARE(textSizeForScale(0.5), TextSize::ExtraSmall);
        QCOMPARE(textSizeForScale(9), TextSize::Accessibility5);
        for (const double scale : {0.0, -1.0, qQNaN()})
            QCOMPARE(textSizeForScale(scale), TextSize::Large);
    }

    void followsThePortal()
    {
        Portal portal({{appearance, {{u"color-scheme"_s, 1u}, {u"accent-color"_s, rgb(0, 0.5, 1)}}},
                       {gnome, {{u"text-scaling-factor"_s, QVariant::fromValue(QDBusVariant(1.25))}}}});
        const DesktopAppearance look(*m_settings);
        QVERIFY(!look.isDark()); // nobody has waited for the answer
        QTRY_VERIFY(look.isDark());
        QCOMPARE(look.textSize(), TextSize::ExtraExtraLarge);
        QCOMPARE(look.accent(), std::optional(QColor::fromRgbF(0, 0.5F, 1)));

        const PortalSettings settings(QDBusConnection::sessionBus());
        QSignalSpy told(&settings, &PortalSettings::didChange);
        QTRY_COMPARE(told.size(), 1);
        QSignalSpy changes(&look, &Appearance::appearanceDidChange);
        portal.change(u"org.example.others"_s, u"color-scheme"_s, 2u);
        portal.change(appearance, u"color-scheme"_s, 2u);
        QTRY_VERIFY(!look.isDark());
        portal.change(appearance, u"accent-color"_s, rgb(-1, -1, -1));
        QTRY_COMPARE(look.accent(), std::nullopt);
        portal.change(gnome, u"font-name"_s, u"Sans 11"_s);
        portal.change(gnome, u"enable-animations"_s, QVariant::fromValue(QDBusVariant(false)));
        QTRY_VERIFY(look.prefersReducedMotion());
        QCOMPARE(changes.size(), 3); // the font changes nothing here
        QTRY_COMPARE(told.size(), 5);
    }

    void asksThePaletteWhereThereIsNoPortal()
    {
        const QPalette before = QGuiApplication::palette();
        QGuiApplication::setPalette(QPalette(Qt::white, Qt::black, Qt::white, Qt::black, Qt::gray, Qt::white,
                                             Qt::white, Qt::black, Qt::black));
        const DesktopAppearance look(*m_settings, QDBusConnection(u"no such bus"_s));
        QGuiApplication::setPalette(before);
        QVERIFY(look.isDark());
        QCOMPARE(look.textSize(), TextSize::Large);
        QVERIFY(!look.accent());
    }

    void readsKdesAnimationSpeed()
    {
        writeFile(m_folder.filePath(u"kdeglobals"_s),
                  "[General]\nColorScheme=BreezeLight\n\n[KDE]\nAnimationDurationFactor=0\n");
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        qputenv("XDG_CURRENT_DESKTOP", "KDE");
        const DesktopAppearance look(*m_settings, QDBusConnection(u"no such bus"_s));
        QTRY_VERIFY(look.prefersReducedMotion());
    }

    void theUsersOwnChoiceComesFirst()
    {
        Portal portal({{appearance, {{u"color-scheme"_s, 1u}}}, {gnome, {{u"enable-animations"_s, false}}}});
        const DesktopAppearance look(*m_settings);
        QTRY_VERIFY(look.isDark() && look.prefersReducedMotion());

        m_settings->setAppearance({.theme = ThemeChoice::Light,
                                   .textSize = TextSize::Accessibility3,
                                   .motion = MotionChoice::Full});
        QVERIFY(!look.isDark() && !look.prefersReducedMotion());
        QCOMPARE(look.textSize(), TextSize::Accessibility3);
        m_settings->setAppearance({});
        QVERIFY(look.isDark() && look.prefersReducedMotion());
        QCOMPARE(look.textSize(), TextSize::Large);
    }

    void keepsChoicesInTheFile()
    {
        const AppearanceChoices choices{
            .theme = ThemeChoice::Dark, .textSize = TextSize::ExtraSmall, .motion = MotionChoice::Reduced};
        const QSignalSpy looks(m_settings.get(), &DeviceSettings::appearanceDidChange);
        const QSignalSpy access(m_settings.get(), &DeviceSettings::microphoneAccessDidChange);
        const QSignalSpy players(m_settings.get(), &DeviceSettings::ignoredPlayersDidChange);
        for (int i = 0; i < 2; ++i) { // the second time nothing changes
            m_settings->setAppearance(choices);
            m_settings->setMicrophoneAccess(AccessChoice::Denied);
            m_settings->setIgnoredPlayers({u"vlc"_s, {}, u"mpv"_s, u"vlc"_s});
            QCOMPARE(QList({looks.size(), access.size(), players.size()}), QList<qsizetype>({1, 1, 1}));
        }
        m_file->sync();
        QSettings again(m_file->fileName(), QSettings::IniFormat);
        const StoredDeviceSettings reread(again);
        QCOMPARE(reread.appearance(), choices);
        QCOMPARE(reread.microphoneAccess(), AccessChoice::Denied);
        QCOMPARE(reread.ignoredPlayers(), QStringList({u"mpv"_s, u"vlc"_s}));

        again.setValue(u"Appearance/Theme"_s, u"purple"_s);
        again.setValue(u"Appearance/TextSize"_s, 99);
        QCOMPARE(reread.appearance(), (AppearanceChoices{.motion = MotionChoice::Reduced}));
    }
};

QTEST_MAIN(tst_DesktopAppearance)
#include "tst_DesktopAppearance.moc"
