// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/KeyboardScrolling.h"

#include <QQuickWindow>

#include <algorithm>
#include <limits>

namespace trackwise {

namespace {

/// Controls and our own focusable items tell why they got the focus; others are not moved to.
bool wasReachedByKey(const QQuickItem &item)
{
    const QVariant reason = item.property("focusReason");
    return reason.isValid() &&
           (reason.toInt() == Qt::TabFocusReason || reason.toInt() == Qt::BacktabFocusReason ||
            reason.toInt() == Qt::ShortcutFocusReason);
}

} // namespace

std::optional<qreal> revealingOffset(const PageStretch &item, const PageStretch &view, qreal air)
{
    const qreal height = view.end - view.start;
    const bool isLonger = item.end - item.start > height;
    if (isLonger && item.start < view.end && item.end > view.start)
        return std::nullopt;
    if (isLonger || item.start < view.start)
        return item.start - air;
    if (item.end > view.end)
        return std::min(item.end + air - height, item.start);
    return std::nullopt;
}

void KeyboardScrolling::setPage(QQuickItem *page)
{
    if (page == m_page)
        return;
    if (m_page)
        m_page->disconnect(this);
    m_page = page;
    if (page) {
        connect(page, &QQuickItem::windowChanged, this, &KeyboardScrolling::watchWindow);
        watchWindow(page->window());
    }
    Q_EMIT pageChanged();
}

bool KeyboardScrolling::scrollForKey(int key, qreal contentY)
{
    const qreal pageStep = m_page->height() - m_lineStep;
    switch (key) {
    case Qt::Key_Up:
        Q_EMIT scrollWanted(contentY - m_lineStep);
        return true;
    case Qt::Key_Down:
        Q_EMIT scrollWanted(contentY + m_lineStep);
        return true;
    case Qt::Key_PageUp:
        Q_EMIT scrollWanted(contentY - pageStep);
        return true;
    case Qt::Key_PageDown:
        Q_EMIT scrollWanted(contentY + pageStep);
        return true;
    case Qt::Key_Home:
        Q_EMIT scrollWanted(0);
        return true;
    case Qt::Key_End:
        Q_EMIT scrollWanted(std::numeric_limits<qreal>::infinity());
        return true;
    default:
        return false;
    }
}

void KeyboardScrolling::watchWindow(const QQuickWindow *window)
{
    disconnect(m_watching);
    if (window)
        m_watching =
            connect(window, &QQuickWindow::activeFocusItemChanged, this, &KeyboardScrolling::focusDidMove);
}

void KeyboardScrolling::focusDidMove()
{
    if (!m_page || !m_page->window())
        return;
    const QQuickItem *focused = m_page->window()->activeFocusItem();
    const auto *content = m_page->property("contentItem").value<QQuickItem *>();
    if (!focused || !content || !content->isAncestorOf(focused) || !wasReachedByKey(*focused))
        return;
    const qreal top = m_page->property("contentY").toReal();
    const qreal start = focused->mapToItem(content, {0, 0}).y();
    const auto offset =
        revealingOffset({start, start + focused->height()}, {top, top + m_page->height()}, m_air);
    if (!offset)
        return;
    const qreal lowest = m_page->property("contentHeight").toReal() - m_page->height();
    Q_EMIT scrollWanted(std::max(0.0, std::min(*offset, lowest)));
}

} // namespace trackwise
