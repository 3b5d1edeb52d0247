// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Dialogs
import Trackwise.Ui

/// A button with which the user chooses a folder.
PlainButton {
    id: root

    signal chosen(url folder)

    symbolName: "plus"
    style: Theme.isAccessibilitySize ? Theme.footnote : Theme.body // briefly told, of what stands above
    anchors.left: parent.left // or right, where one reads from there
    maximumWidth: parent.width
    height: Math.max(Theme.touchTarget, implicitHeight)
    onClicked: dialog.open()

    FolderDialog {
        id: dialog

        title: root.text
        onAccepted: root.chosen(dialog.selectedFolder)
    }
}
