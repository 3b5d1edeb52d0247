// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// Back or, where there is no way back, another scan; the title, and Cancel. Very large texts stand in two lines.
Item {
    id: root

    required property MediaPicker picker
    property bool showsTitle: true
    readonly property real gap: 8
    readonly property real sides: Math.max(cancel.width, root.picker.canGoBack ? back.width : scanAgain.width) + Theme.margin() + root.gap

    implicitHeight: Theme.isAccessibilitySize ? cancel.height + title.implicitHeight + root.gap : Math.max(cancel.height, title.implicitHeight) + root.gap

    PlainButton {
        id: back

        anchors.left: parent.left
        anchors.leftMargin: Theme.margin()
        anchors.top: parent.top
        anchors.topMargin: root.gap / 2
        height: Theme.touchTarget
        visible: root.picker.canGoBack
        display: PlainButton.IconOnly
        text: qsTr("Back")
        symbolName: "chevron.backward"
        symbolMirrors: true
        onClicked: root.picker.goBack()
    }
    PlainButton {
        id: scanAgain

        anchors.left: parent.left
        anchors.leftMargin: Theme.margin()
        anchors.top: parent.top
        anchors.topMargin: root.gap / 2
        height: Theme.touchTarget
        visible: !root.picker.canGoBack
        enabled: !root.picker.scan.isRunning
        display: PlainButton.IconOnly
        text: qsTr("Scan Again")
        symbolName: "arrow.clockwise"
        onClicked: root.picker.scan.start()
    }
    PlainButton {
        id: cancel

        anchors.right: parent.right
        anchors.rightMargin: Theme.margin()
        anchors.top: parent.top
        anchors.topMargin: root.gap / 2
        height: Math.max(Theme.touchTarget, implicitHeight)
        text: qsTr("Cancel")
        style: Theme.barButton
        onClicked: root.picker.cancel()
    }
    Heading {
        id: title

        visible: root.showsTitle
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.isAccessibilitySize ? Theme.margin() : root.sides
        anchors.rightMargin: anchors.leftMargin
        height: Theme.isAccessibilitySize ? implicitHeight : parent.height
        text: root.picker.title
        style: Theme.barTitle
        elide: Text.ElideRight
        maximumLineCount: 1
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
