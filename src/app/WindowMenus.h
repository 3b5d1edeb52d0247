// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detail/KeyCommands.h"
#include "platform/Appearance.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace trackwise {

class DetailViewController;
class Presentation;

/// The menus of a window's menu bar, and with them its keys: which commands there are, whether they can be
/// carried out now, and who does so. Main thread.
class WindowMenus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
    Q_PROPERTY(trackwise::CommandMenu *applicationMenu READ applicationMenu CONSTANT)
    Q_PROPERTY(trackwise::CommandMenu *fileMenu READ fileMenu CONSTANT)
    Q_PROPERTY(bool isInWindow READ isInWindow NOTIFY placeDidChange)
    Q_PROPERTY(bool isAlwaysShown READ isAlwaysShown NOTIFY placeDidChange)
    Q_PROPERTY(bool isOnDesktop READ isOnDesktop NOTIFY placeDidChange)

public:
    /// @p detail and @p presentation must outlive it.
    WindowMenus(DetailViewController &detail, Presentation &presentation, QObject *parent = nullptr);

    [[nodiscard]] CommandMenu *applicationMenu() { return &m_applicationMenu; }
    [[nodiscard]] CommandMenu *fileMenu() { return &m_fileMenu; }

    /// Where the menus are; absent: nowhere, as on phones.
    void setPlace(std::optional<MenuBarPlace> place);
    [[nodiscard]] bool isInWindow() const { return m_place && m_place != MenuBarPlace::OnDesktop; }
    [[nodiscard]] bool isAlwaysShown() const { return m_place == MenuBarPlace::InWindow; }
    [[nodiscard]] bool isOnDesktop() const { return m_place == MenuBarPlace::OnDesktop; }

Q_SIGNALS:
    void newWindowKeyCommanded();
    void closeWindowKeyCommanded();
    /// A command is about to be carried out; who walks through the menu bar is done.
    void willPerform();
    void placeDidChange();

private:
    void update();
    [[nodiscard]] bool validate(KeyCommand command) const;
    void perform(KeyCommand command);

    DetailViewController &m_detail;
    Presentation &m_presentation;
    CommandMenu m_applicationMenu;
    CommandMenu m_fileMenu;
    std::optional<MenuBarPlace> m_place;
};

} // namespace trackwise
