// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ItemInterface.h"

#include <QQuickItem>
#include <QQuickWindow>

namespace trackwise {

ItemInterface::ItemInterface(QQuickItem *item)
    : QAccessibleObject(item)
{}

QQuickItem *ItemInterface::item() const
{
    return static_cast<QQuickItem *>(object());
}

QWindow *ItemInterface::window() const
{
    return item()->window();
}

QRect ItemInterface::rect() const
{
    if (!item()->window())
        return {};
    const QRectF inWindow = item()->mapRectToScene({0, 0, item()->width(), item()->height()});
    return {item()->window()->mapToGlobal(inWindow.topLeft()).toPoint(), inWindow.size().toSize()};
}

QAccessible::State ItemInterface::state() const
{
    QAccessible::State state;
    state.invisible = !item()->isVisible() || !item()->window();
    state.offscreen = state.invisible || !rect().intersects(item()->window()->geometry());
    state.disabled = !item()->isEnabled();
    state.focusable = item()->activeFocusOnTab();
    state.focused = item()->hasActiveFocus();
    return state;
}

QAccessibleInterface *ItemInterface::parent() const
{
    for (QQuickItem *outer = item()->parentItem(); outer; outer = outer->parentItem()) {
        if (QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(outer))
            return interface;
    }
    return QAccessible::queryAccessibleInterface(item()->window());
}

QAccessibleInterface *ItemInterface::child(int) const
{
    return nullptr;
}

int ItemInterface::indexOfChild(const QAccessibleInterface *wanted) const
{
    for (int index = 0; index < childCount(); ++index) {
        if (child(index) == wanted)
            return index;
    }
    return -1;
}

} // namespace trackwise
