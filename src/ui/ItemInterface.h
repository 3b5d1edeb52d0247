// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessibleObject>

class QQuickItem;

namespace trackwise {

/// What screen readers meet for an item of ours that says more of itself than QML can: its place in the
/// window. Such an item also needs a role in QML, for its neighbours find it by that. Main thread.
class ItemInterface : public QAccessibleObject
{
public:
    explicit ItemInterface(QQuickItem *item);

    [[nodiscard]] QWindow *window() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QAccessibleInterface *parent() const override;
    /// No children, unless a subclass has some.
    [[nodiscard]] QAccessibleInterface *child(int index) const override;
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;

protected:
    [[nodiscard]] QQuickItem *item() const;
};

} // namespace trackwise
