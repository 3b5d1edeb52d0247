// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopLook.h"

#include <algorithm>
#include <cmath>

namespace trackwise {

namespace {

constexpr QLatin1StringView appearance("org.freedesktop.appearance");
constexpr QLatin1StringView gnomeInterface("org.gnome.desktop.interface");
constexpr QLatin1StringView gnomeAccessibility("org.gnome.desktop.a11y.interface");
constexpr QLatin1StringView kdeGlobals("org.kde.kdeglobals.KDE");

QVariant valueOf(const DesktopSettings &settings, QLatin1StringView space, const char *key)
{
    return settings.value({QString(space), QString::fromLatin1(key)});
}

std::optional<uint> number(const QVariant &value)
{
    return value.typeId() == QMetaType::UInt ? std::optional(value.toUInt()) : std::nullopt;
}

std::optional<bool> truth(const QVariant &value)
{
    return value.typeId() == QMetaType::Bool ? std::optional(value.toBool()) : std::nullopt;
}

// The portal says 0 for "no preference", 1 for dark, 2 for light. GNOME's light style is reported as 0.
std::optional<bool> isDark(const DesktopSettings &settings)
{
    if (const auto scheme = number(valueOf(settings, appearance, "color-scheme")))
        return *scheme == 1;
    const QString scheme = valueOf(settings, gnomeInterface, "color-scheme").toString();
    if (scheme.isEmpty())
        return std::nullopt;
    return scheme == QLatin1StringView("prefer-dark");
}

bool prefersHighContrast(const DesktopSettings &settings)
{
    return number(valueOf(settings, appearance, "contrast")) == 1u ||
           truth(valueOf(settings, gnomeAccessibility, "high-contrast")) == true;
}

bool prefersReducedMotion(const DesktopSettings &settings)
{
    if (number(valueOf(settings, appearance, "reduced-motion")) == 1u ||
        truth(valueOf(settings, gnomeInterface, "enable-animations")) == false)
        return true;
    bool isNumber = false;
    const double factor = valueOf(settings, kdeGlobals, "AnimationDurationFactor").toDouble(&isNumber);
    return isNumber && factor <= 0;
}

// Red, green and blue from 0 to 1. Numbers outside that range say that there is none.
std::optional<QColor> colour(const QVariant &value)
{
    const QVariantList parts = value.toList();
    const bool isColour =
        parts.size() == 3 && std::ranges::all_of(parts, [](const QVariant &part) {
            return part.typeId() == QMetaType::Double && part.toDouble() >= 0 && part.toDouble() <= 1;
        });
    if (!isColour)
        return std::nullopt;
    return QColor::fromRgbF(parts[0].toFloat(), parts[1].toFloat(), parts[2].toFloat());
}

} // namespace

TextSize textSizeForScale(double scale)
{
    if (!std::isfinite(scale) || scale <= 0)
        return TextSize::Large;
    // Sizes are perceived by their ratio, so the nearest one is the nearest in logarithm.
    const auto nearest = std::ranges::min_element(
        textScales, {}, [scale](double s) { return std::abs(std::log(s) - std::log(scale)); });
    return static_cast<TextSize>(nearest - textScales.begin());
}

DesktopLook desktopLook(const DesktopSettings &settings)
{
    DesktopLook look;
    look.isDark = isDark(settings);
    look.prefersHighContrast = prefersHighContrast(settings);
    look.prefersReducedMotion = prefersReducedMotion(settings);
    const QVariant scale = valueOf(settings, gnomeInterface, "text-scaling-factor");
    if (scale.typeId() == QMetaType::Double)
        look.textSize = textSizeForScale(scale.toDouble());
    look.accent = colour(valueOf(settings, appearance, "accent-color"));
    return look;
}

} // namespace trackwise
