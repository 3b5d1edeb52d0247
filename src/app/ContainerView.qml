// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.App
import Trackwise.Artwork
import Trackwise.Detail
import Trackwise.Ui

/// Two columns: at the leading side the artwork, where there is room for it, and beside it the details.
FocusScope {
    id: root

    required property ContainerViewController container
    required property Presentation presentation

    onWidthChanged: root.container.viewWillTransitionToSize(Qt.size(root.width, root.height))
    onHeightChanged: root.container.viewWillTransitionToSize(Qt.size(root.width, root.height))

    Rectangle {
        id: sidebar

        anchors.left: parent.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        width: root.container.columnWidth
        visible: root.container.isSidebarVisible
        color: Theme.secondarySystemBackground

        // Turning a tablet changes the width; the window itself may change at any speed.
        Behavior on width {
            enabled: sidebar.visible

            NumberAnimation {
                duration: Theme.pushDuration
                easing.type: Easing.InOutQuad
            }
        }

        Loader {
            anchors.fill: parent
            active: root.container.sidebar !== null
            sourceComponent: ArtworkSidebarView {
                view: root.container.sidebar
            }
        }
        Separator {
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.bottom: parent.bottom
        }
    }
    NavigationStack {
        anchors.left: parent.left
        anchors.leftMargin: sidebar.visible ? sidebar.width : 0
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        presentation: root.presentation
        focus: true
        initialItem: DetailView {
            controller: root.container.detail
            isRegularWidth: root.container.isSidebarVisible
        }
    }
    ReviewCard {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 16
        visible: root.container.isReviewCardVisible
        onRateRequested: root.container.rate()
        onDismissed: root.container.closeReviewCard()
    }
}
