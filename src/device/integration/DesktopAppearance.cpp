// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopAppearance.h"

#include "device/bus/BusCalls.h"
#include "device/integration/PortalSettings.h"
#include "platform/Background.h"
#include "platform/DeviceSettings.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QGuiApplication>
#include <QPalette>
#include <QSettings>
#include <QStandardPaths>

namespace trackwise {

namespace {

bool isPaletteDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightnessF() < palette.color(QPalette::WindowText).lightnessF();
}

// Plasma keeps the speed of animations here; its portal does not always pass it on.
DesktopSettings kdeAnimationSpeed()
{
    DesktopSettings settings;
    const QString path =
        QStandardPaths::locate(QStandardPaths::GenericConfigLocation, QStringLiteral("kdeglobals"));
    if (path.isEmpty())
        return settings;
    const QSettings file(path, QSettings::IniFormat);
    settings.insert({QStringLiteral("org.kde.kdeglobals.KDE"), QStringLiteral("AnimationDurationFactor")},
                    file.value(QStringLiteral("KDE/AnimationDurationFactor")));
    return settings;
}

DesktopLook withChoices(DesktopLook look, const AppearanceChoices &choices)
{
    if (choices.theme != ThemeChoice::Automatic)
        look.isDark = choices.theme == ThemeChoice::Dark;
    if (choices.textSize)
        look.textSize = *choices.textSize;
    if (choices.motion != MotionChoice::Automatic)
        look.prefersReducedMotion = choices.motion == MotionChoice::Reduced;
    return look;
}

} // namespace

DesktopAppearance::DesktopAppearance(const DeviceSettings &settings, const QDBusConnection &bus,
                                     QObject *parent)
    : Appearance(parent)
    , m_settings(settings)
    , m_portal(new PortalSettings(bus, this))
    // Read once: the app may give its own controls a palette later, and that one must not decide.
    , m_isPaletteDark(isPaletteDark())
{
    connect(m_portal, &PortalSettings::didChange, this, &DesktopAppearance::update);
    connect(&m_settings, &DeviceSettings::appearanceDidChange, this, &DesktopAppearance::update);
    update();
    readKdeGlobals();
    lookForDesktopMenus(bus);
}

DesktopAppearance::~DesktopAppearance() = default;

void DesktopAppearance::readKdeGlobals()
{
    if (!qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(QLatin1StringView("KDE")))
        return;
    runInBackground(*QThreadPool::globalInstance(), this, kdeAnimationSpeed, [this](DesktopSettings found) {
        m_kdeGlobals = std::move(found);
        update();
    });
}

// Desktops with a global menu have somebody on the bus with whom windows register their menus. Qt looks for
// it once, so that one who comes later would not be told of ours.
void DesktopAppearance::lookForDesktopMenus(const QDBusConnection &bus)
{
    if (!bus.isConnected())
        return;
    const QString registrar = QStringLiteral("com.canonical.AppMenu.Registrar");
    const auto follow = [this](bool isThere) {
        m_desktopShowsMenus = isThere;
        update();
    };
    const QDBusMessage question = busCall(QStringLiteral("NameHasOwner")) << registrar;
    whenReplied(bus.asyncCall(question), this, [this, bus, registrar, follow](const QDBusMessage &reply) {
        if (!reply.arguments().value(0).toBool())
            return;
        auto *watcher =
            new QDBusServiceWatcher(registrar, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
        connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
                [follow](const QString &, const QString &, const QString &now) { follow(!now.isEmpty()); });
        follow(true);
    });
}

void DesktopAppearance::update()
{
    DesktopSettings said = m_kdeGlobals;
    said.insert(m_portal->values()); // newer than the file, where it has the same key
    DesktopLook look = desktopLook(said);
    look.isDark = look.isDark.value_or(m_isPaletteDark);
    look = withChoices(look, m_settings.appearance());
    const MenuBarPlace place = m_desktopShowsMenus                    ? MenuBarPlace::OnDesktop
                               : m_settings.appearance().showsMenuBar ? MenuBarPlace::InWindow
                                                                      : MenuBarPlace::OnDemand;
    if (look == m_shown && place == m_menuBarPlace)
        return;
    m_shown = look;
    m_menuBarPlace = place;
    Q_EMIT appearanceDidChange();
}

} // namespace trackwise
