// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Artwork
import Trackwise.Detail
import Trackwise.Information
import Trackwise.Ui

/// The main screen: the bar with the ways to a song, and everything about the song, or the word that there is
/// none.
FocusScope {
    id: root

    required property DetailViewController controller
    required property bool isRegularWidth

    Rectangle {
        anchors.fill: parent
        color: Theme.systemBackground
    }
    NavigationBar {
        id: bar

        width: parent.width
        margin: Theme.margin(root.isRegularWidth) // as the list below
        hasLine: list.item !== null && (list.item as InformationView).isScrolled

        PlainButton {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            height: Theme.touchTarget
            text: qsTr("Select Song")
            symbolName: "plus.circle"
            style: Theme.barButton
            onClicked: root.controller.selectSongFromLibrary()
        }
        PlainButton {
            id: moreButton

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            height: Theme.touchTarget
            symbolName: "ellipsis.circle"
            style: Theme.barButton
            Accessible.name: qsTr("More")
            onClicked: moreMenu.open()

            CommandMenuView {
                id: moreMenu

                y: moreButton.height
                x: moreButton.LayoutMirroring.enabled ? 0 : moreButton.width - width
                menu: root.controller.moreMenu
            }
        }
    }
    Loader {
        id: list

        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        active: root.controller.informationView !== null
        sourceComponent: InformationView {
            view: root.controller.informationView
            isRegularWidth: root.isRegularWidth
            artworkBlock: artworkAboveList
            focus: true
        }
    }
    Component {
        id: artworkAboveList

        ArtworkView {
            view: root.controller.artworkView
            geometryWidth: root.width
        }
    }
    LinkDropTarget {
        id: dropTarget

        anchors.fill: parent
        onDropped: addresses => root.controller.handleDroppedURLs(addresses)
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: 6
        radius: 12
        visible: dropTarget.isTargeted
        color: "transparent"
        border.width: 3
        border.color: Theme.accent
    }
    StyledText {
        anchors.centerIn: parent
        width: parent.width - 2 * bar.margin
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        visible: root.controller.isNoSongLabelVisible
        text: qsTr("No Song Selected")
        style: Theme.title3
        color: Theme.secondaryLabel
    }
}
