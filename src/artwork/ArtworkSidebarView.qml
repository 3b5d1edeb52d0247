// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Artwork

/// Fills the column beside the details with one cover in its middle. An on-screen keyboard does not move it.
/// It scrolls only where long titles in large text need more than the column's height.
Flickable {
    id: root

    required property ArtworkSidebarViewModel view
    readonly property real padding: 20

    contentWidth: width
    contentHeight: Math.max(height, artwork.implicitHeight + 2 * padding)
    interactive: contentHeight > height
    clip: interactive
    boundsBehavior: Flickable.StopAtBounds

    ArtworkView {
        id: artwork

        x: root.padding
        y: (root.contentHeight - height) / 2
        width: root.width - 2 * root.padding
        height: implicitHeight
        view: root.view.artwork
        geometryWidth: root.width
    }
}
