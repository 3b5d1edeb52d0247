// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Artwork
import Trackwise.Ui

/// The view as a column beside the details, or as the top of a narrow window.
Rectangle {
    id: root

    required property ArtworkSidebarViewModel sidebar
    required property ArtworkViewModel view
    required property bool isColumn
    readonly property real padding: 18

    color: root.isColumn ? Theme.secondarySystemBackground : Theme.systemBackground
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Loader {
        anchors.fill: parent
        active: root.isColumn
        sourceComponent: ArtworkSidebarView {
            view: root.sidebar
        }
    }
    Loader {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: root.padding
        y: root.padding
        active: !root.isColumn
        sourceComponent: ArtworkView {
            view: root.view
            geometryWidth: root.width
        }
    }
}
