// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Artwork
import Trackwise.Ui

/// Fills the column beside the details with one cover in its middle. An on-screen keyboard does not move it.
/// It scrolls only where the cover and its titles need more than the column's height.
Flickable {
    id: root

    required property ArtworkSidebarViewModel view
    readonly property real padding: 20
    readonly property real leastSpace: 12
    readonly property real lowest: contentHeight - height

    // In a low window up to half of the cover gives way, so that its titles and the play button are seen.
    function showTitles() {
        root.contentY = Math.min(root.lowest, artwork.side / 2);
    }

    contentWidth: width
    contentHeight: Math.max(height, artwork.implicitHeight + 2 * leastSpace)
    interactive: contentHeight > height
    clip: interactive
    boundsBehavior: Flickable.StopAtBounds
    onLowestChanged: root.showTitles()
    onViewChanged: root.showTitles()

    T.ScrollBar.vertical: SlimScrollBar {}

    ArtworkView {
        id: artwork

        x: root.padding
        y: (root.contentHeight - height) / 2
        width: root.width - 2 * root.padding
        height: implicitHeight
        view: root.view.artwork
        geometryWidth: root.width
    }
    KeyboardScrolling {
        page: root
        air: root.leastSpace
        onScrollWanted: contentY => root.contentY = contentY
    }
}
