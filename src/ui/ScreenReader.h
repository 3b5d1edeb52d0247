// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QQuickItem;

namespace trackwise {

/// Tells screen readers where the user is where the keyboard focus alone does not: in a list that is moved
/// through from a text field. Main thread.
class ScreenReader : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The user is on @p item now, although the keyboard focus is not.
    Q_INVOKABLE static void moveTo(QQuickItem *item);
    /// The user is where the keyboard focus is again, in the window of @p item.
    Q_INVOKABLE static void moveToFocus(const QQuickItem *item);
};

} // namespace trackwise
