// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// At the foot of the picker while something goes on in the background: how far, and a way to stop it.
Item {
    id: root

    required property double fraction
    required property string text
    required property string note
    required property string commandTitle
    required property string commandSymbol
    readonly property real airAround: 6
    readonly property real lineHeight: 2

    signal commanded

    implicitHeight: texts.height + 2 * root.airAround + root.lineHeight

    Accessible.role: Accessible.ProgressBar
    Accessible.name: progressText.text
    Accessible.description: root.note

    Rectangle {
        anchors.top: parent.top
        width: parent.width
        height: root.lineHeight
        color: Theme.systemFill

        Rectangle {
            anchors.left: parent.left
            height: parent.height
            width: parent.width * root.fraction
            color: Theme.accent
        }
    }
    Column {
        id: texts

        anchors.left: parent.left
        anchors.leftMargin: Theme.margin()
        anchors.right: command.left
        anchors.rightMargin: Theme.margin()
        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.airAround

        StyledText {
            id: progressText

            width: parent.width
            text: root.text
            style: Theme.footnote
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
        }
        StyledText {
            width: parent.width
            text: root.note
            style: Theme.caption
            color: Theme.secondaryLabel
            elide: Text.ElideMiddle
            horizontalAlignment: Text.AlignLeft
        }
    }
    PlainButton {
        id: command

        anchors.right: parent.right
        anchors.rightMargin: Theme.margin()
        anchors.verticalCenter: texts.verticalCenter
        display: PlainButton.IconOnly
        text: root.commandTitle
        symbolName: root.commandSymbol
        color: Theme.secondaryLabel
        onClicked: root.commanded()
    }
}
