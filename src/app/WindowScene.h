// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/ContainerViewController.h"
#include "app/WindowMenus.h"
#include "detail/DetailViewController.h"
#include "ui/Presentation.h"

#include <QElapsedTimer>
#include <QObject>
#include <QQuickWindow>

#include <memory>

class QQmlEngine;

namespace trackwise {

/// One window and all that belongs to it alone. Main thread.
class WindowScene : public QObject
{
    Q_OBJECT

public:
    /// The services and the engine must outlive the scene.
    WindowScene(QQmlEngine &engine, const DetailServices &detailServices,
                const ContainerServices &containerServices, QObject *parent = nullptr);
    ~WindowScene() override;

    void show();
    /// Where the desktop and the user want menus; a phone's window has none.
    void setMenuBarPlace(MenuBarPlace place);
    /// Carries out an action of the desktop entry, once the window is set up; one that is not known is none.
    void performWhenSetUp(const QString &action);
    /// At once. True for the choice from the library only; the other actions are carried out all the same.
    bool perform(const QString &action);
    /// Brings the window to the front, as far as the desktop lets us.
    void raise();
    [[nodiscard]] QQuickWindow &window() { return *m_window; }
    [[nodiscard]] DetailViewController &detail() { return m_detail; }
    [[nodiscard]] Presentation &presentation() { return m_presentation; }
    [[nodiscard]] WindowMenus &menus() { return m_menus; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The window is still as the user has seen it, with its frame.
    void willClose();
    void didClose();

private:
    Presentation m_presentation;
    DetailViewController m_detail;
    ContainerViewController m_container;
    WindowMenus m_menus;
    QElapsedTimer m_sinceShown;
    std::unique_ptr<QQuickWindow> m_window; ///< last: its views look at the others
};

} // namespace trackwise
