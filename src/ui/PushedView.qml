// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// A screen on the navigation stack, under a bar that leads back.
FocusScope {
    id: root

    required property HostedView view
    required property Presentation presentation

    Rectangle {
        anchors.fill: parent
        color: Theme.systemBackground
    }
    NavigationBar {
        id: bar

        width: parent.width
        title: root.view ? root.view.title : ""

        PlainButton {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            symbolName: "chevron.backward"
            symbolMirrors: true
            text: qsTr("Back")
            style: Theme.body.atMost(bar.largestText)
            focus: true
            onClicked: root.presentation.pop()
        }
    }
    ViewHost {
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        view: root.view
    }
    Shortcut {
        sequences: [StandardKey.Back, "Escape"]
        enabled: root.visible && !root.presentation.isAlertVisible && !root.presentation.isSheetVisible
        onActivated: root.presentation.pop()
    }
}
