// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.App
import Trackwise.Ui

/// The menu bar of a window.
T.MenuBar {
    id: root

    required property WindowMenus windowMenus
    required property MenuBarReveal reveal

    implicitHeight: contentItem.implicitHeight
    leftPadding: 6
    rightPadding: 6
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.MenuBar
    Accessible.name: qsTr("Menu Bar")
    Keys.onEscapePressed: root.reveal.leave()
    Keys.onShortcutOverride: event => { event.accepted = event.key === Qt.Key_Escape; } // not to the screen

    background: Rectangle {
        color: Theme.secondarySystemBackground

        Separator {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
    contentItem: Row {
        Repeater {
            model: root.contentModel
        }
    }
    delegate: T.MenuBarItem {
        id: item

        implicitWidth: label.implicitWidth + leftPadding + rightPadding
        implicitHeight: Math.max(34, label.implicitHeight + 12)
        leftPadding: 12
        rightPadding: 12
        hoverEnabled: true
        Accessible.role: Accessible.MenuItem
        Accessible.name: item.text

        background: Rectangle {
            anchors.fill: parent
            anchors.margins: 3
            radius: 6
            color: Theme.systemFill
            opacity: item.hovered || item.menu.visible || item.highlighted && root.activeFocus ? 1 : 0
        }
        contentItem: StyledText {
            id: label

            verticalAlignment: Text.AlignVCenter
            text: item.text
            style: Theme.barButton
            Accessible.ignored: true
        }
    }

    component BarMenu: CommandMenuView {
        heading: ""
        title: menu.title
        onVisibleChanged: visible || Qt.callLater(root.reveal.menuDidClose)
    }

    BarMenu {
        menu: root.windowMenus.applicationMenu
    }
    BarMenu {
        menu: root.windowMenus.fileMenu
    }

    Connections {
        target: root.windowMenus

        function onWillPerform() {
            root.reveal.leave();
        }
    }
}
