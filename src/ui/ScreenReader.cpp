// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ScreenReader.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>

namespace trackwise {

void ScreenReader::moveTo(QQuickItem *item)
{
    if (!QAccessible::isActive() || !item || !item->window())
        return;
    QAccessibleEvent event(item, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void ScreenReader::moveToFocus(const QQuickItem *item)
{
    if (item->window())
        moveTo(item->window()->activeFocusItem());
}

} // namespace trackwise
