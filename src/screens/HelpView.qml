// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Screens
import Trackwise.Ui

/// How songs get into the app, and how its developer is reached.
FocusScope {
    id: root

    required property HelpScreen screen

    readonly property string title: qsTr("Help")
    readonly property bool isRegularWidth: width >= Theme.sheetWidth
    readonly property real paragraphSpacing: 16
    readonly property real aboveHeading: 15
    readonly property real aboveRemark: 10
    readonly property int largestButton: 24 // pixels: larger ones do not fit a phone

    focus: true
    Keys.onPressed: event => page.scrollForEvent(event)

    NavigationBar {
        id: bar

        width: parent.width
        title: root.title
        margin: Theme.margin(root.isRegularWidth)
        hasLine: page.isScrolled

        PlainButton {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Done")
            style: Theme.barButton.semibold()
            focus: true
            onClicked: root.screen.dismiss()
        }
    }
    ScrollingPage {
        id: page

        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        isRegularWidth: root.isRegularWidth
        verticalPadding: 16
        air: verticalPadding

        Column {
            width: parent.width
            spacing: root.paragraphSpacing

            HelpHeading {
                topPadding: root.aboveHeading
                text: qsTr("App")
            }
            HelpText {
                text: qsTr("Select any song from your music library in the Trackwise app to view its information. This works with songs you've added to your library via Apple Music as well as purchased, matched, uploaded, and synced songs. Note that songs on Apple Music that haven't been added to your library cannot be accessed.")
            }
            HelpHeading {
                topPadding: root.aboveHeading
                text: qsTr("Share Sheet Action")
            }
            HelpText {
                text: qsTr("Share a song in the Music app to view its information right from the share sheet. I recommend adding Get Trackwise to your favorites via Edit Actions so it's easily accessible in the top section. Note that the Music app does not have a share button for songs not available on Apple Music.")
            }
            HelpText {
                topPadding: root.aboveRemark
                text: qsTr("The action extension will try to look up the song in your library. This may require an internet connection and it's possible it may not be able to find the right song, for example, if you've renamed that song. If an error occurs, you can use the app to view its information even without an internet connection.")
            }
            HelpHeading {
                topPadding: root.aboveHeading
                text: qsTr("Contact Support")
            }
            HelpText {
                text: qsTr("Reach out if you have any questions or feedback!")
            }
            PlainButton {
                anchors.left: parent.left // leading in every language
                text: qsTr("Email the Developer")
                style: Theme.body.atMost(root.largestButton)
                onClicked: root.screen.contactSupport()
            }
        }
    }
}
