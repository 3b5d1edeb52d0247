// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickItem>

namespace trackwise {

/// An item that knows why it got the focus: a focus ring helps after use of the keyboard.
class FocusableItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool hasKeyboardFocus READ hasKeyboardFocus NOTIFY hasKeyboardFocusChanged)
    /// Why it got the focus last, as controls have it.
    Q_PROPERTY(Qt::FocusReason focusReason READ focusReason NOTIFY focusReasonChanged)

public:
    explicit FocusableItem(QQuickItem *parent = nullptr)
        : QQuickItem(parent)
    {}

    [[nodiscard]] bool hasKeyboardFocus() const { return m_hasKeyboardFocus; }
    [[nodiscard]] Qt::FocusReason focusReason() const { return m_focusReason; }

Q_SIGNALS:
    void hasKeyboardFocusChanged();
    void focusReasonChanged();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void setHasKeyboardFocus(bool hasFocus);

    Qt::FocusReason m_focusReason = Qt::OtherFocusReason;
    bool m_hasKeyboardFocus = false;
    bool m_hadKeyboardFocus = false; ///< when the focus last went away
};

} // namespace trackwise
