// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Artwork

/// A song's cover with its playback row beneath. As high as it needs to be; its width is the host's to give.
Item {
    id: root

    required property ArtworkViewModel view
    /// Width that the host has before its own margins; the tile's size follows from it.
    required property real geometryWidth
    readonly property real side: root.view.side(root.geometryWidth)
    readonly property real gap: 25

    implicitWidth: root.side
    // Not by what is visible: behind another screen the page keeps its height, and with it its place.
    implicitHeight: root.view.hasSong ? row.y + row.height : tile.height

    function appear() {
        root.view?.appear();
    }

    Component.onCompleted: root.appear()
    onViewChanged: root.appear()
    onVisibleChanged: root.appear()

    ArtworkTile {
        id: tile

        anchors.horizontalCenter: parent.horizontalCenter
        view: root.view
        side: root.side
    }
    PlaybackRow {
        id: row

        anchors.top: tile.bottom
        anchors.topMargin: root.gap
        anchors.horizontalCenter: parent.horizontalCenter
        width: root.view.alignPlaybackWithArtwork ? root.side : parent.width
        visible: root.view.hasSong
        view: root.view
    }
}
