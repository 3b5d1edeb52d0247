// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Information
import Trackwise.Ui

/// The heading of the list and the switch between few and all rows, on one baseline or, at the largest text
/// sizes, one above the other.
Item {
    id: root

    required property SongInformation view

    readonly property bool isStacked: Theme.isAccessibilitySize
    readonly property real spaceAbove: 30
    readonly property real spaceBelow: 10
    readonly property real buttonPadding: 10

    // Whole points, so that the hairlines below stay sharp.
    implicitHeight: Math.round(Math.max(title.y + title.height, showMore.y + showMore.height)) + spaceBelow

    Heading {
        id: title

        // On a shared baseline the higher of the two begins at the top.
        y: root.spaceAbove + (root.isStacked ? 0 : Math.max(0, showMore.baselineOffset - baselineOffset))
        anchors.left: parent.left
        width: Math.min(implicitWidth, root.isStacked ? root.width : root.width - showMore.width)
        text: qsTr("Information")
        style: Theme.title2.bold()
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Math.round(font.pixelSize / 2)
        elide: Text.ElideRight
    }
    PlainButton {
        id: showMore

        y: root.isStacked ? title.y + title.height : title.y + title.baselineOffset - baselineOffset
        // One anchor at all sizes: of two that change places both hold for a moment.
        anchors.left: parent.left
        anchors.leftMargin: root.isStacked ? 0 : root.width - width
        verticalPadding: root.buttonPadding
        text: root.view.showMoreInformation ? qsTr("Show Less") : qsTr("Show More")
        style: Theme.caption
        onClicked: root.view.toggleShowMoreInformation()
    }
}
