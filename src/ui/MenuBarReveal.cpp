// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MenuBarReveal.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickWindow>

#include <utility>

namespace trackwise {

namespace {

// Besides the key that the menu bar knows itself.
bool opensMenu(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Up;
}

} // namespace

void MenuBarReveal::setMenuBar(QQuickItem *menuBar)
{
    if (menuBar == m_menuBar)
        return;
    if (m_menuBar)
        m_menuBar->disconnect(this);
    m_menuBar = menuBar;
    if (menuBar) {
        connect(menuBar, &QQuickItem::windowChanged, this, &MenuBarReveal::watchWindow);
        watchWindow(menuBar->window());
    }
    Q_EMIT menuBarChanged();
}

void MenuBarReveal::watchWindow(QQuickWindow *window)
{
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (window)
        window->installEventFilter(this);
}

bool MenuBarReveal::isAtBar() const
{
    return m_isWalking && !m_isCovered && m_menuBar && m_menuBar->hasActiveFocus();
}

bool MenuBarReveal::press(Qt::Key key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    return QCoreApplication::sendEvent(m_menuBar, &event);
}

bool MenuBarReveal::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isAlone = key->key() == Qt::Key_Alt && !(key->modifiers() & ~Qt::AltModifier);
        m_isAltAlone = isAlone && (m_isAltAlone || !key->isAutoRepeat());
        if (key->key() == Qt::Key_F10 && key->modifiers() == Qt::NoModifier && !m_isCovered &&
            m_isAvailable) {
            toggle();
            return true;
        }
        return opensMenu(key->key()) && isAtBar() && press(Qt::Key_Down);
    }
    case QEvent::KeyRelease:
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Alt && std::exchange(m_isAltAlone, false) &&
            !m_isCovered && m_isAvailable)
            toggle();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        m_isAltAlone = false;
        if (m_isWalking && !m_isCovered && m_menuBar &&
            static_cast<QPointerEvent *>(event)->point(0).scenePosition().y() >= m_menuBar->height())
            leave();
        break;
    case QEvent::Wheel:
    case QEvent::FocusOut:
        m_isAltAlone = false;
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void MenuBarReveal::toggle()
{
    if (m_isWalking) {
        leave();
        return;
    }
    m_focusBefore = m_window->activeFocusItem();
    setWalking(true);
    goToFirstMenu();
}

// By the menu bar's own keys: it remembers where the last walk ended, and goes on from there.
void MenuBarReveal::goToFirstMenu()
{
    const bool isMirrored = m_menuBar->property("mirrored").toBool();
    m_menuBar->forceActiveFocus(Qt::MenuBarFocusReason);
    QQuickItem *first = nullptr;
    QMetaObject::invokeMethod(m_menuBar, "itemAt", Q_RETURN_ARG(QQuickItem *, first), Q_ARG(int, 0));
    const int count = m_menuBar->property("count").toInt();
    for (int step = 0; step < count && first && !first->property("highlighted").toBool(); ++step)
        press(isMirrored ? Qt::Key_Left : Qt::Key_Right);
}

void MenuBarReveal::menuDidClose()
{
    if (!m_isCovered) // by the next menu
        leave();
}

void MenuBarReveal::leave()
{
    if (!m_isWalking)
        return;
    setWalking(false);
    if (m_menuBar)
        press(Qt::Key_Up); // where the mouse rests on the bar, it would open the menus of the next walk
    if (m_focusBefore)
        m_focusBefore->forceActiveFocus(Qt::MenuBarFocusReason);
}

void MenuBarReveal::setWalking(bool isWalking)
{
    m_isWalking = isWalking;
    Q_EMIT changed();
}

} // namespace trackwise
