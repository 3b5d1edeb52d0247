// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// What a list without rows shows: why it is empty, and what can be done.
Column {
    id: root

    required property MediaPicker picker
    readonly property real symbolSize: Math.round(2.4 * Theme.title3.font.pixelSize)
    readonly property real margin: 32

    leftPadding: root.margin
    rightPadding: root.margin
    spacing: 8

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        name: root.picker.emptyState.symbolName
        size: root.symbolSize
        color: Theme.secondaryLabel
    }
    Heading {
        width: root.width - 2 * root.margin
        text: root.picker.emptyState.title
        style: Theme.title3.bold()
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
    StyledText {
        width: root.width - 2 * root.margin
        text: root.picker.emptyState.message
        style: Theme.subheadline
        color: Theme.secondaryLabel
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        maximumLineCount: 8 // a pasted page of text is no reason to push the rest away
    }
    PlainButton {
        anchors.horizontalCenter: parent.horizontalCenter
        visible: root.picker.emptyState.offersFolder
        maximumWidth: root.width - 2 * root.margin
        height: Math.max(Theme.touchTarget, implicitHeight)
        text: qsTr("Choose Folder…")
        symbolName: "folder"
        onClicked: root.picker.folderWanted()
    }
}
