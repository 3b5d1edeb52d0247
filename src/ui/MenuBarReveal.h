// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace trackwise {

/// When a window's menu bar is there: always, or from a tap on Alt or F10 on until a command is chosen,
/// Escape, Alt or F10 pressed, or something else in the window clicked. Either key begins the walk through
/// it; after it the keyboard is where it was before. Main thread.
class MenuBarReveal : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// The menu bar; its window is the one whose keys count.
    Q_PROPERTY(QQuickItem *menuBar READ menuBar WRITE setMenuBar NOTIFY menuBarChanged)
    /// The window has a menu bar of its own: no phone's has, nor has one whose menus the desktop shows.
    Q_PROPERTY(bool isAvailable MEMBER m_isAvailable NOTIFY changed)
    Q_PROPERTY(bool isAlwaysShown MEMBER m_isAlwaysShown NOTIFY changed)
    /// Something stands in front of the menu bar, such as a sheet or one of the menus: keys are theirs.
    Q_PROPERTY(bool isCovered MEMBER m_isCovered NOTIFY changed)
    Q_PROPERTY(bool isVisible READ isVisible NOTIFY changed)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem *menuBar() const { return m_menuBar; }
    void setMenuBar(QQuickItem *menuBar);
    [[nodiscard]] bool isVisible() const { return m_isAvailable && (m_isAlwaysShown || m_isWalking); }

    /// Ends the walk.
    Q_INVOKABLE void leave();
    /// For the menus: the walk ends with the last one.
    Q_INVOKABLE void menuDidClose();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void menuBarChanged();
    void changed();

private:
    void watchWindow(QQuickWindow *window);
    void toggle();
    void setWalking(bool isWalking);
    void goToFirstMenu();
    [[nodiscard]] bool isAtBar() const;
    bool press(Qt::Key key);

    QPointer<QQuickItem> m_menuBar;
    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_focusBefore;
    bool m_isAvailable = true;
    bool m_isAlwaysShown = false;
    bool m_isCovered = false;
    bool m_isWalking = false;
    bool m_isAltAlone = false; ///< pressed, and nothing since
};

} // namespace trackwise
