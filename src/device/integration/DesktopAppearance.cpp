// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopAppearance.h"

#include "device/integration/PortalSettings.h"
#include "platform/Background.h"
#include "platform/DeviceSettings.h"

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

void DesktopAppearance::update()
{
    DesktopSettings said = m_kdeGlobals;
    said.insert(m_portal->values()); // newer than the file, where it has the same key
    DesktopLook look = desktopLook(said);
    look.isDark = look.isDark.value_or(m_isPaletteDark);
    look = withChoices(look, m_settings.appearance());
    if (look == m_shown)
        return;
    m_shown = look;
    Q_EMIT appearanceDidChange();
}

} // namespace trackwise
