// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.App
import Trackwise.Detail
import Trackwise.Ui

/// A window of the app: the sidebar with the artwork beside the navigation stack, and what is presented over
/// both.
T.ApplicationWindow {
    id: root

    required property ContainerViewController container
    required property Presentation presentation

    width: 1024
    height: 768
    minimumWidth: 320
    minimumHeight: 300
    title: qsTr("Trackwise")
    color: Theme.systemBackground
    LayoutMirroring.enabled: Theme.isRightToLeft
    LayoutMirroring.childrenInherit: true

    AccessibleLayer {
        anchors.fill: parent
        isCovered: root.presentation.isSheetVisible || root.presentation.isAlertVisible
        focus: true
        Accessible.role: Accessible.Pane

        ContainerView {
            anchors.fill: parent
            container: root.container
            presentation: root.presentation
            focus: true
            Accessible.role: Accessible.Pane
        }
    }
    SheetLayer {
        presentation: root.presentation
    }
    AlertLayer {
        presentation: root.presentation
    }
    // The app's own commands work in every state of the window. The window's context would leave out what
    // stands behind a sheet or an alert, which is all of it here.
    Shortcut {
        sequences: [StandardKey.New]
        context: Qt.ApplicationShortcut
        enabled: root.active
        onActivated: root.container.detail.newWindowWanted()
    }
    Shortcut {
        sequences: ["Ctrl+Q"] // the standard key is none on desktops that Qt does not know
        context: Qt.ApplicationShortcut
        enabled: root.active
        onActivated: Qt.quit()
    }
    Component.onCompleted: root.presentation.setAnimated(true)
}
