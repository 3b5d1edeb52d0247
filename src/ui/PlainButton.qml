// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// A button without a box: a symbol, a text, or both, in the accent colour.
BaseButton {
    id: root

    property string symbolName: ""
    property real symbolSize: Math.round(1.2 * style.font.pixelSize) // a little higher than the letters
    property bool symbolMirrors: false
    property textStyle style: Theme.body
    property color color: Theme.accent
    property real maximumWidth: Infinity // a longer text goes on in further lines
    readonly property real hoverMargin: 6

    spacing: 5

    // Close around the content, however high the button is.
    background: Rectangle {
        anchors.centerIn: parent
        width: root.width + 2 * root.hoverMargin
        height: Math.min(root.height, root.implicitContentHeight + 2 * root.hoverMargin)
        radius: 8
        color: Theme.systemFill
        opacity: root.hovered && root.enabled ? 0.5 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverDuration
            }
        }
    }

    contentItem: Item {
        implicitWidth: row.implicitWidth
        implicitHeight: row.implicitHeight
        baselineOffset: row.y + label.y + label.baselineOffset

        Row {
            id: row

            anchors.centerIn: parent
            spacing: root.spacing

            Symbol {
                id: symbol

                anchors.verticalCenter: parent.verticalCenter
                visible: root.symbolName !== ""
                name: root.symbolName
                size: root.symbolSize
                color: root.color
                mirrors: root.symbolMirrors
            }
            StyledText {
                id: label

                readonly property real beside: root.symbolName !== "" ? symbol.width + row.spacing : 0
                readonly property real available: root.maximumWidth - beside

                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, available)
                wrapMode: Text.Wrap
                visible: root.text !== "" && root.display !== T.AbstractButton.IconOnly
                text: root.text
                style: root.style.keepingWords(root.text, available)
                color: root.color
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
        }
    }
}
