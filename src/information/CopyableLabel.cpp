// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/CopyableLabel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QKeySequence>

namespace trackwise {

void CopyableLabel::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    Q_EMIT textChanged();
}

void CopyableLabel::setSelection(const QString &selection)
{
    if (selection == m_selection)
        return;
    m_selection = selection;
    Q_EMIT selectionChanged();
}

void CopyableLabel::copy() const
{
    copyText(m_text);
}

void CopyableLabel::copyCreationText() const
{
    copyText(m_creationText);
}

void CopyableLabel::copyText(const QString &whole) const
{
    QGuiApplication::clipboard()->setText(m_selection.isEmpty() ? whole : m_selection);
}

QPointF CopyableLabel::editMenuAnchor(QPointF touch)
{
    constexpr qreal nearTop = 40;
    constexpr qreal aboveFinger = 10;
    constexpr qreal firstLineTop = 9; // the label's vertical padding
    return {touch.x(), touch.y() > nearTop ? touch.y() - aboveFinger : firstLineTop};
}

void CopyableLabel::componentComplete()
{
    QQuickItem::componentComplete();
    renew(m_text);
}

void CopyableLabel::keyPressEvent(QKeyEvent *event)
{
    const bool asksForMenu = event->key() == Qt::Key_Menu ||
                             (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
    if (event->matches(QKeySequence::Copy))
        copy();
    else if (asksForMenu)
        Q_EMIT contextMenuRequested();
    else
        event->ignore();
}

} // namespace trackwise
