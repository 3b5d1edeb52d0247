// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Artwork

/// Fills the column beside the details with one cover in its middle. An on-screen keyboard does not move it.
/// It scrolls only where the cover and its titles need more than the column's height.
Flickable {
    id: root

    required property ArtworkSidebarViewModel view
    readonly property real padding: 20
    readonly property real leastSpace: 12
    readonly property real mostHidden: 60

    contentWidth: width
    contentHeight: Math.max(height, artwork.implicitHeight + 2 * leastSpace)
    // In a low window the cover's top gives way, so that the play button can be reached.
    contentY: Math.min(contentHeight - height, mostHidden)
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
