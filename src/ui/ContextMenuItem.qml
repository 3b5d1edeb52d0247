// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// One command of a menu: a text with its keys and a symbol at its trailing side.
T.MenuItem {
    id: root

    property string symbolName: ""
    /// The keys that do the same, for people.
    property string keyText: ""
    /// Starts a section of the menu.
    property bool hasLineAbove: false
    readonly property real lineRoom: hasLineAbove ? 9 : 0

    implicitWidth: label.implicitWidth + keys.implicitWidth + symbol.width + 52
    implicitHeight: Math.max(40, label.implicitHeight + 16) + lineRoom
    topPadding: lineRoom
    width: ListView.view ? ListView.view.width : implicitWidth
    hoverEnabled: true
    Accessible.role: Accessible.MenuItem
    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()
    // It closes the menu, whatever else it means in the window.
    Keys.onShortcutOverride: event => { event.accepted = event.key === Qt.Key_Escape; }

    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.topMargin: root.lineRoom
            radius: 8
            color: Theme.systemFill
            opacity: Math.max(root.down ? 1 : 0, root.highlighted ? 0.6 : 0)
        }
        Separator {
            x: 6
            y: root.lineRoom / 2
            width: parent.width - 2 * x
            visible: root.hasLineAbove
        }
    }
    contentItem: Item {
        opacity: root.enabled ? 1 : 0.4

        StyledText {
            id: label

            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.right: keys.visible ? keys.left : symbol.left
            anchors.rightMargin: 14
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            style: Theme.subheadline
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
        StyledText {
            id: keys

            anchors.right: symbol.left
            anchors.rightMargin: symbol.width > 0 ? 14 : 0
            anchors.verticalCenter: parent.verticalCenter
            visible: root.width >= root.implicitWidth // else the command has the room
            text: root.keyText
            style: Theme.footnote
            color: Theme.secondaryLabel
            Accessible.ignored: true
        }
        Symbol {
            id: symbol

            anchors.right: parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbolName
            size: root.symbolName === "" ? 0 : Math.round(1.2 * label.font.pixelSize)
            color: Theme.label
        }
    }
}
