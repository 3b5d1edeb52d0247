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
        hasLine: host.isScrolled

        PlainButton {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            symbolName: "chevron.backward"
            symbolMirrors: true
            text: qsTr("Back")
            style: Theme.barButton
            focus: true
            onClicked: root.presentation.pop()
        }
    }
    ViewHost {
        id: host

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
