// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickItem>

namespace trackwise {

/// An item that knows whether it got the focus by the keyboard, which is when a focus ring helps.
class FocusableItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool hasKeyboardFocus READ hasKeyboardFocus NOTIFY hasKeyboardFocusChanged)

public:
    explicit FocusableItem(QQuickItem *parent = nullptr)
        : QQuickItem(parent)
    {}

    [[nodiscard]] bool hasKeyboardFocus() const { return m_hasKeyboardFocus; }

Q_SIGNALS:
    void hasKeyboardFocusChanged();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void setHasKeyboardFocus(bool hasFocus);

    bool m_hasKeyboardFocus = false;
    bool m_hadKeyboardFocus = false; ///< when the focus last went away
};

} // namespace trackwise
