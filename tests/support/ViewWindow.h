// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Theme.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickView>
#include <QStringList>
#include <QTest>

#include <vector>

namespace trackwise {

/// The names of all that a screen reader finds in @p window, or of all with that role.
[[nodiscard]] QStringList namesIn(QQuickWindow &window, QAccessible::Role role = QAccessible::NoRole);

/// A screen in a real window of its own, read as a screen reader reads it. What the screen shows has to
/// outlive it: derive from that first, and then from this.
class ViewWindow
{
public:
    explicit ViewWindow(QSize size, const ThemeSettings &settings = {});
    /// Loads the file below Trackwise/ with one property set, and waits until the window is active.
    void show(const char *file, const char *property, const QVariant &value);

    struct Element
    {
        QQuickItem *item;
        QAccessible::Role role;
        QString name;
    };
    /// Everything with a name that a screen reader comes across, in the order of the page.
    [[nodiscard]] std::vector<Element> elements();
    [[nodiscard]] QStringList names() { return namesIn(window); }
    /// The first element whose name begins so, of any role unless one is given; null when there is none.
    [[nodiscard]] QQuickItem *find(const QString &nameStart, QAccessible::Role role = QAccessible::NoRole);
    /// In the window; only then is everything where it stays. Empty for what is not there.
    [[nodiscard]] QRectF place(const QString &nameStart, QAccessible::Role role = QAccessible::NoRole);
    [[nodiscard]] QRectF place(const QQuickItem *item);

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void press(std::initializer_list<Qt::Key> keys);
    /// Amid the element.
    void click(Qt::MouseButton button, const QString &nameStart,
               QAccessible::Role role = QAccessible::NoRole);

    QQuickView window;
};

/// Waits until everything in @p window is laid out: what has just been made or has grown is elsewhere before.
void waitForLayout(const QQuickWindow &window);

} // namespace trackwise
