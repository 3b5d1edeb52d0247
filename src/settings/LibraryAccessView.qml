// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Settings
import Trackwise.Ui

/// The device's question whether the app may use the music library.
FocusScope {
    id: root

    required property LibraryAccessRequest request

    readonly property real margin: Theme.margin(true)
    readonly property real gap: 12
    readonly property real symbolSize: Math.round(2.5 * Theme.title2.font.pixelSize)
    readonly property real textWidth: 420

    focus: true

    ScrollingPage {
        id: page

        anchors.fill: parent
        isRegularWidth: true
        widestContent: root.textWidth
        bottomPadding: 24
        air: bottomPadding
        focus: true

        Item {
            id: opening

            width: parent.width
            height: Math.max(root.margin * 2, (page.height - texts.height - buttons.height) / 3)
        }
        Column {
            id: texts

            width: parent.width
            spacing: root.gap

            Symbol {
                anchors.horizontalCenter: parent.horizontalCenter
                name: "music.note"
                size: root.symbolSize
            }
            Heading {
                width: parent.width
                text: qsTr("“Trackwise” would like to access your music library")
                style: Theme.title2.bold()
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            StyledText {
                width: parent.width
                bottomPadding: root.gap
                text: qsTr("It shows what your library knows about a song. It reads the music in these folders and never changes it.")
                style: Theme.subheadline
                color: Theme.secondaryLabel
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            FolderList {
                width: parent.width
                folders: root.request.folders
            }
            FolderChoice {
                text: qsTr("Choose Another Folder…")
                onChosen: folder => root.request.addFolder(folder)
            }
        }
        // The answers stand at the lower edge, or after the text where it needs the room.
        Item {
            width: parent.width
            height: Math.max(root.margin, page.height - opening.height - texts.height - buttons.height - page.bottomPadding)
        }
        Column {
            id: buttons

            width: parent.width
            spacing: root.gap

            PromptButton {
                width: parent.width
                text: qsTr("OK")
                isFilled: true
                Component.onCompleted: focus = true // from the page, which has it until then
                onClicked: root.request.allow()
            }
            PromptButton {
                width: parent.width
                text: qsTr("Don't Allow")
                onClicked: root.request.deny()
            }
        }
    }
}
