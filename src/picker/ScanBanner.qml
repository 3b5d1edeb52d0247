// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// At the foot of the picker while the music folders are being read: how far, where, and a way to stop it.
Item {
    id: root

    required property ScanStatus scan
    readonly property real airAround: 6
    readonly property real lineHeight: 2

    implicitHeight: texts.height + 2 * root.airAround + root.lineHeight

    Accessible.role: Accessible.ProgressBar
    Accessible.name: progressText.text

    Rectangle {
        anchors.top: parent.top
        width: parent.width
        height: root.lineHeight
        color: Theme.systemFill

        Rectangle {
            anchors.left: parent.left
            height: parent.height
            width: parent.width * root.scan.fraction
            color: Theme.accent
        }
    }
    Column {
        id: texts

        anchors.left: parent.left
        anchors.leftMargin: Theme.margin()
        anchors.right: stop.left
        anchors.rightMargin: Theme.margin()
        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.airAround

        StyledText {
            id: progressText

            width: parent.width
            text: root.scan.text
            style: Theme.footnote
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
        }
        StyledText {
            width: parent.width
            text: root.scan.folder
            style: Theme.caption
            color: Theme.secondaryLabel
            elide: Text.ElideMiddle
            horizontalAlignment: Text.AlignLeft
        }
    }
    PlainButton {
        id: stop

        anchors.right: parent.right
        anchors.rightMargin: Theme.margin()
        anchors.verticalCenter: texts.verticalCenter
        display: PlainButton.IconOnly
        text: qsTr("Stop Reading Music")
        symbolName: "xmark.circle.fill"
        color: Theme.secondaryLabel
        onClicked: root.scan.cancel()
    }
}
