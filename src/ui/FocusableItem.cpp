// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/FocusableItem.h"

#include <QFocusEvent>

namespace trackwise {

void FocusableItem::focusInEvent(QFocusEvent *event)
{
    QQuickItem::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason != m_focusReason) {
        m_focusReason = reason;
        Q_EMIT focusReasonChanged();
    }
    // A menu that closes or a window that comes back gives the focus back as it was.
    const bool returns = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
    setHasKeyboardFocus(returns ? m_hadKeyboardFocus
                                : reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                                      reason == Qt::ShortcutFocusReason);
}

void FocusableItem::focusOutEvent(QFocusEvent *event)
{
    QQuickItem::focusOutEvent(event);
    m_hadKeyboardFocus = m_hasKeyboardFocus;
    setHasKeyboardFocus(false);
}

void FocusableItem::setHasKeyboardFocus(bool hasFocus)
{
    if (hasFocus == m_hasKeyboardFocus)
        return;
    m_hasKeyboardFocus = hasFocus;
    Q_EMIT hasKeyboardFocusChanged();
}

} // namespace trackwise
