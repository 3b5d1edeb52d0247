// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Artwork
import Trackwise.Ui

/// The song's title and artist, led by the way to the music app for the song that plays there, followed by
/// the play button for one that can be played here.
Item {
    id: root

    required property ArtworkViewModel view
    readonly property real leastGap: 10
    readonly property real linkGap: 8
    readonly property real symbolSize: 32

    implicitHeight: Math.max(information.implicitHeight, root.view.showsPlayButton ? playButton.height : 0)

    Column {
        id: information

        anchors.left: parent.left
        width: parent.width - (root.view.showsPlayButton ? playButton.width : 0) - root.leastGap
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        Accessible.role: Accessible.Grouping
        Accessible.name: root.view.spokenText

        Heading {
            visible: root.view.isNowPlaying
            width: parent.width
            style: Theme.caption2.bold()
            color: Theme.secondaryLabel
            horizontalAlignment: Text.AlignLeft
            wrapMode: Text.Wrap
            text: qsTr("NOW PLAYING")
        }
        Item {
            width: parent.width
            implicitHeight: Math.max(titles.implicitHeight, root.view.isNowPlaying ? link.height : 0)

            MusicAppLink {
                id: link

                anchors.left: parent.left
                anchors.verticalCenter: parent.verticalCenter
                visible: root.view.isNowPlaying
                size: root.symbolSize
                onActivated: root.view.openMusicApp()
            }
            TitleBlock {
                id: titles

                anchors.right: parent.right
                width: parent.width - (root.view.isNowPlaying ? link.width + root.linkGap : 0)
                anchors.verticalCenter: parent.verticalCenter
                view: root.view
            }
        }
    }
    PlainButton {
        id: playButton

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: 30
        height: Theme.touchTarget
        visible: root.view.showsPlayButton
        symbolName: root.view.isPlaying ? "pause.fill" : "play.fill"
        symbolSize: root.symbolSize
        Accessible.name: root.view.isPlaying ? qsTr("Pause") : qsTr("Play")
        onClicked: root.view.togglePlayback()
    }
}
