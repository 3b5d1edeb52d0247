// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/HeldTouch.h"

#include <QGuiApplication>
#include <QStyleHints>

#include <chrono>
#include <utility>

namespace trackwise {

namespace {

constexpr std::chrono::milliseconds holdTime{500}; // as the labels of the list

bool isFar(const QPointF &from, const QPointF &to)
{
    return (to - from).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance();
}

} // namespace

HeldTouch::HeldTouch(QQuickItem *parent)
    : QQuickItem(parent)
{
    setAcceptTouchEvents(true);
}

void HeldTouch::touchEvent(QTouchEvent *event)
{
    const QPointF place = event->points().front().position();
    if (event->type() == QEvent::TouchBegin && event->points().size() == 1) {
        m_state = State::Down;
        m_place = place;
        m_hold.start(static_cast<int>(holdTime.count()), this);
    } else if (event->type() != QEvent::TouchUpdate || event->points().size() > 1) {
        end();
    } else if (m_state == State::Held && isFar(m_place, place)) {
        m_state = State::Pulled;
        Q_EMIT pulled(m_place);
    } else if (m_state == State::Down && isFar(m_place, place)) {
        m_hold.stop();
    }
}

void HeldTouch::touchUngrabEvent()
{
    end();
}

void HeldTouch::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_hold.timerId())
        return QQuickItem::timerEvent(event);
    m_hold.stop();
    m_state = State::Held;
    setKeepTouchGrab(true); // what scrolls has waited too long
    Q_EMIT held(m_place);
}

void HeldTouch::end()
{
    m_hold.stop();
    setKeepTouchGrab(false);
    if (std::exchange(m_state, State::None) == State::Pulled)
        Q_EMIT released();
}

} // namespace trackwise
