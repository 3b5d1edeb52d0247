// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBasicTimer>
#include <QPointF>
#include <QQuickItem>

namespace trackwise {

/// An area that one finger can hold and, once it is held, pull away. A finger that moves sooner is left to
/// whatever scrolls. Positions are in the item. Main thread.
class HeldTouch : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit HeldTouch(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void held(const QPointF &place);
    /// The held finger has begun to move; @p place is where it was put down.
    void pulled(const QPointF &place);
    /// A finger that had pulled has let go, as far as this window hears of it.
    void released();

protected:
    void touchEvent(QTouchEvent *event) override;
    void touchUngrabEvent() override;
    void timerEvent(QTimerEvent *event) override;

private:
    enum class State { None, Down, Held, Pulled };

    void end();

    State m_state = State::None;
    QPointF m_place;
    QBasicTimer m_hold;
};

} // namespace trackwise
