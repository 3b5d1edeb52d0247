// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// A button without a box: a symbol, a text, or both, in the accent colour. Its target is at least 44 points
/// wide and high even where what is drawn is smaller.
T.AbstractButton {
    id: root

    property string symbolName: ""
    property real symbolSize: Math.round(1.2 * style.font.pixelSize) // a little higher than the letters
    property bool symbolMirrors: false
    property textStyle style: Theme.body
    property color color: Theme.accent
    readonly property real hoverMargin: 6

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    spacing: 5
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: !enabled ? 0.4 : down ? 0.6 : 1
    containmentMask: target

    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Rectangle {
        anchors.fill: ground
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
                anchors.verticalCenter: parent.verticalCenter
                visible: root.symbolName !== ""
                name: root.symbolName
                size: root.symbolSize
                color: root.color
                mirrors: root.symbolMirrors
            }
            StyledText {
                id: label

                anchors.verticalCenter: parent.verticalCenter
                visible: root.text !== "" && root.display !== T.AbstractButton.IconOnly
                text: root.text
                style: root.style
                color: root.color
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
        }
    }

    Item {
        id: target

        anchors.centerIn: parent
        width: Math.max(root.width, Theme.touchTarget)
        height: Math.max(root.height, Theme.touchTarget)
    }
    // What is seen of the button's area: close around its content, however high it is.
    Item {
        id: ground

        anchors.centerIn: parent
        width: root.width + 2 * root.hoverMargin
        height: Math.min(root.height, root.implicitContentHeight + 2 * root.hoverMargin)
    }
    FocusRing {
        anchors.fill: ground
        visible: root.visualFocus
    }
}
