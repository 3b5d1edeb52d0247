// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/KeyboardScrolling.h"

#include <QQuickWindow>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

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
    const std::array<std::pair<int, qreal>, 6> targets{{
        {Qt::Key_Up, contentY - m_lineStep},
        {Qt::Key_Down, contentY + m_lineStep},
        {Qt::Key_PageUp, contentY - pageStep},
        {Qt::Key_PageDown, contentY + pageStep},
        {Qt::Key_Home, 0},
        {Qt::Key_End, std::numeric_limits<qreal>::infinity()},
    }};
    const auto target = std::ranges::find(targets, key, &std::pair<int, qreal>::first);
    if (target == targets.end())
        return false;
    Q_EMIT scrollWanted(target->second);
    return true;
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
