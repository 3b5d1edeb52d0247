// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowPlacements.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace trackwise {

namespace {

// By the name of the one configuration that windows are made by.
constexpr QLatin1StringView sizeKey("Default Configuration/Size");
constexpr QLatin1StringView positionKey("Default Configuration/Position");
constexpr QLatin1StringView maximizedKey("Default Configuration/Maximized");

bool placesWindows()
{
    return !QGuiApplication::platformName().startsWith(QLatin1StringView("wayland"));
}

// Enough of its upper edge to take hold of it.
bool canBeReached(const QRect &window)
{
    constexpr int hold = 80; // points
    const QRect handle(window.topLeft(), QSize(window.width(), hold / 2));
    return std::ranges::any_of(QGuiApplication::screens(), [&handle](const QScreen *screen) {
        const QRect seen = screen->availableGeometry() & handle;
        return seen.width() >= hold && seen.height() >= handle.height() / 2;
    });
}

} // namespace

void WindowPlacements::restore(QWindow &window, bool isAlone) const
{
    const QSize size = m_file.value(sizeKey).toSize();
    if (!size.isEmpty())
        window.resize(size.boundedTo(window.screen()->availableSize()).expandedTo(window.minimumSize()));
    const QVariant position = m_file.value(positionKey);
    if (isAlone && placesWindows() && position.typeId() == QMetaType::QPoint &&
        canBeReached({position.toPoint(), window.size()}))
        window.setFramePosition(position.toPoint());
    if (isAlone && m_file.value(maximizedKey).toBool())
        window.setWindowStates(Qt::WindowMaximized);
}

void WindowPlacements::remember(const QWindow &window)
{
    const bool isMaximized = window.windowStates().testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen);
    m_file.setValue(maximizedKey, isMaximized);
    if (isMaximized)
        return; // the size before is the one to go back to
    m_file.setValue(sizeKey, window.size());
    if (placesWindows())
        m_file.setValue(positionKey, window.framePosition());
}

} // namespace trackwise
