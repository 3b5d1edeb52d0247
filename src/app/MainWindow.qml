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

    ContainerView {
        anchors.fill: parent
        container: root.container
        presentation: root.presentation
        focus: true
    }
    SheetLayer {
        presentation: root.presentation
    }
    AlertLayer {
        presentation: root.presentation
    }
    Component.onCompleted: root.presentation.setAnimated(true)
}
