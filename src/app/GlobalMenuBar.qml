// SPDX-License-Identifier: GPL-3.0-or-later
import QtQml
import Qt.labs.platform as Platform
import QtQuick
import Trackwise.App
import Trackwise.Ui

/// The menus of a window where the desktop shows them, over the desktop's global menu.
Platform.MenuBar {
    id: root

    required property WindowMenus windowMenus

    component CommandSubmenu: Platform.Menu {
        id: submenu

        required property CommandMenu commands

        title: submenu.commands.title

        Instantiator {
            model: submenu.commands
            onObjectAdded: (index, object) => {
                submenu.addItem(object.line);
                submenu.addItem(object);
            }

            delegate: Platform.MenuItem {
                required property int index
                required property bool startsSection
                readonly property Platform.MenuItem line: Platform.MenuSeparator {
                    visible: startsSection
                }
                required property string title
                required property bool isEnabled
                required property string keyText

                text: title
                enabled: isEnabled
                shortcut: keyText
                onTriggered: submenu.commands.trigger(index)
            }
        }
    }

    CommandSubmenu {
        commands: root.windowMenus.applicationMenu
    }
    CommandSubmenu {
        commands: root.windowMenus.fileMenu
    }
}
