// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QObject>
#include <QString>

#include <array>
#include <optional>

namespace trackwise {

/// The twelve text sizes that people choose from; the last five are the accessibility sizes.
enum class TextSize {
    ExtraSmall,
    Small,
    Medium,
    Large, ///< the default
    ExtraLarge,
    ExtraExtraLarge,
    ExtraExtraExtraLarge,
    Accessibility1,
    Accessibility2,
    Accessibility3,
    Accessibility4,
    Accessibility5,
};

/// How high letters are at each of them, as a share of those at the default.
inline constexpr std::array textScales{0.82, 0.88, 0.94, 1.0, 1.12, 1.24, 1.35, 1.64, 1.94, 2.35, 2.76, 3.12};

[[nodiscard]] constexpr double textScale(TextSize size)
{
    return textScales.at(static_cast<std::size_t>(size));
}
[[nodiscard]] constexpr bool isAccessibilitySize(TextSize size)
{
    return size >= TextSize::Accessibility1;
}

/// Where the menus of a window are.
enum class MenuBarPlace {
    OnDemand, ///< in the window, while a key has called for them
    InWindow,
    OnDesktop, ///< the desktop shows them, in a bar of its own
};

/// How the user wants programs to look. Main thread.
class Appearance : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual bool isDark() const = 0;
    [[nodiscard]] virtual bool prefersHighContrast() const = 0;
    [[nodiscard]] virtual bool prefersReducedMotion() const = 0;
    [[nodiscard]] virtual TextSize textSize() const = 0;
    [[nodiscard]] virtual std::optional<QColor> accent() const = 0;
    [[nodiscard]] virtual MenuBarPlace menuBarPlace() const { return MenuBarPlace::OnDemand; }

Q_SIGNALS:
    void appearanceDidChange();
};

} // namespace trackwise
