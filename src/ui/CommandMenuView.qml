// SPDX-License-Identifier: GPL-3.0-or-later
import QtQml
import QtQuick
import Trackwise.Ui

/// A menu of commands, such as the one behind the "More" button.
ContextMenu {
    id: root

    required property CommandMenu menu

    heading: root.menu.title
    onAboutToShow: root.menu.setOpen(true)
    onClosed: root.menu.setOpen(false)

    Instantiator {
        model: root.menu
        onObjectAdded: (index, object) => root.insertItem(index, object)
        onObjectRemoved: (index, object) => root.removeItem(object)

        delegate: ContextMenuItem {
            required property int index
            required property string title
            required symbolName
            required keyText
            required property bool isEnabled
            required property bool startsSection

            text: title
            enabled: isEnabled
            hasLineAbove: startsSection
            onTriggered: root.menu.trigger(index)
        }
    }
}
