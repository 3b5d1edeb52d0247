// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// One command of a menu: a text with a symbol at its trailing side.
T.MenuItem {
    id: root

    property string symbolName: ""

    implicitWidth: label.implicitWidth + symbol.width + 52
    implicitHeight: Math.max(40, label.implicitHeight + 16)
    width: ListView.view ? ListView.view.width : implicitWidth
    hoverEnabled: true
    Accessible.role: Accessible.MenuItem
    Accessible.name: root.text

    background: Rectangle {
        radius: 8
        color: Theme.systemFill
        opacity: root.down ? 1 : root.highlighted ? 0.6 : 0
    }
    contentItem: Item {
        opacity: root.enabled ? 1 : 0.4

        StyledText {
            id: label

            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.right: symbol.left
            anchors.rightMargin: 14
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            style: Theme.subheadline
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Symbol {
            id: symbol

            anchors.right: parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbolName
            size: 18
            color: Theme.label
        }
    }
}
