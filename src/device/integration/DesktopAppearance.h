// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/integration/DesktopLook.h"
#include "platform/Appearance.h"

#include <QDBusConnection>

namespace trackwise {

class DeviceSettings;
class PortalSettings;

/// The desktop's look, except where the user has chosen otherwise for this app. Never waits: until the
/// desktop has answered, and where it never does, the lightness of the application's palette decides between
/// light and dark and everything else has its usual value. Main thread.
class DesktopAppearance : public Appearance
{
    Q_OBJECT

public:
    /// @p settings must outlive this object.
    explicit DesktopAppearance(const DeviceSettings &settings,
                               const QDBusConnection &bus = QDBusConnection::sessionBus(),
                               QObject *parent = nullptr);
    ~DesktopAppearance() override;

    [[nodiscard]] bool isDark() const override { return m_shown.isDark.value_or(false); }
    [[nodiscard]] bool prefersHighContrast() const override { return m_shown.prefersHighContrast; }
    [[nodiscard]] bool prefersReducedMotion() const override { return m_shown.prefersReducedMotion; }
    [[nodiscard]] TextSize textSize() const override { return m_shown.textSize; }
    [[nodiscard]] std::optional<QColor> accent() const override { return m_shown.accent; }
    [[nodiscard]] MenuBarPlace menuBarPlace() const override { return m_menuBarPlace; }

private:
    void readKdeGlobals();
    void lookForDesktopMenus(const QDBusConnection &bus);
    void update();

    const DeviceSettings &m_settings;
    PortalSettings *m_portal;
    DesktopSettings m_kdeGlobals;
    bool m_isPaletteDark;
    DesktopLook m_shown;
    bool m_desktopShowsMenus = false;
    MenuBarPlace m_menuBarPlace = MenuBarPlace::OnDemand;
};

} // namespace trackwise
