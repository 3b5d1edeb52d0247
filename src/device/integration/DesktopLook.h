// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Appearance.h"

#include <QHash>
#include <QVariant>

#include <optional>
#include <utility>

namespace trackwise {

/// The desktop's settings as its portal names them: (namespace, key) to plain value.
using DesktopSettings = QHash<std::pair<QString, QString>, QVariant>;

/// How the desktop wants programs to look; what it does not say is absent.
struct DesktopLook
{
    std::optional<bool> isDark;
    bool prefersHighContrast = false;
    bool prefersReducedMotion = false;
    TextSize textSize = TextSize::Large;
    std::optional<QColor> accent;

    friend bool operator==(const DesktopLook &, const DesktopLook &) = default;
};

/// Reads the keys of the appearance portal and, for desktops whose portal has fewer of them, those of GNOME
/// and KDE. A value of the wrong type or out of range counts as not said.
[[nodiscard]] DesktopLook desktopLook(const DesktopSettings &settings);

/// The text size whose scale is nearest to the desktop's; GNOME's "Large Text" (1.25) is extra extra large.
[[nodiscard]] TextSize textSizeForScale(double scale);

} // namespace trackwise
