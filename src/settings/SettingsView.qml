// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Settings
import Trackwise.Ui

/// What the user decides about this app on this device.
FocusScope {
    id: root

    required property SettingsScreen screen

    readonly property string title: qsTr("Settings")
    readonly property bool isRegularWidth: width >= Theme.sheetWidth
    readonly property list<string> themes: [qsTr("Automatic"), qsTr("Light"), qsTr("Dark")]
    readonly property list<string> motions: [qsTr("Automatic"), qsTr("Reduced"), qsTr("Full")]

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
            style: Theme.barButton
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
        bottomPadding: 24
        air: bottomPadding

        Heading {
            width: parent.width
            visible: Theme.isAccessibilitySize
            text: root.title
            style: Theme.title2.bold()
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Math.round(font.pixelSize / 2)
        }
        SettingsSection {
            width: parent.width
            title: qsTr("Music")

            SettingsRow {
                width: parent.width
                title: qsTr("Music access")
                note: root.screen.isMusicRestricted ? qsTr("The system does not let Trackwise read your music folders.") : qsTr("Trackwise reads your music and never changes it.")

                ToggleSwitch {
                    text: qsTr("Music access")
                    isOn: root.screen.isMusicAllowed
                    enabled: !root.screen.isMusicRestricted
                    onChosen: isOn => root.screen.setMusicAllowed(isOn)
                }
            }
            FolderList {
                width: parent.width
                folders: root.screen.folders
                canRemove: true
                onRemoved: row => root.screen.removeFolder(row)
            }
            FolderChoice {
                text: qsTr("Add Music Folder…")
                onChosen: folder => root.screen.addFolder(folder)
            }
            PlainButton {
                anchors.left: parent.left
                maximumWidth: parent.width
                height: Math.max(Theme.touchTarget, implicitHeight)
                visible: root.screen.isMusicAllowed
                enabled: !root.screen.isScanning
                text: qsTr("Scan Again")
                symbolName: "arrow.clockwise"
                style: Theme.isAccessibilitySize ? Theme.footnote : Theme.body // as the line above
                onClicked: root.screen.scanAgain()
            }
        }
        MicrophoneSection {
            width: parent.width
            screen: root.screen
            viewTop: page.contentY
            viewBottom: page.contentY + page.height
        }
        RecognitionSection {
            width: parent.width
            index: root.screen.index
        }
        SettingsSection {
            width: parent.width
            title: qsTr("Appearance")

            SettingsRow {
                id: themeRow

                width: parent.width
                title: qsTr("Theme")
                isStacked: themeBar.implicitWidth > width * 0.7

                ChoiceBar {
                    id: themeBar

                    width: themeRow.isStacked ? availableWidth : implicitWidth
                    name: qsTr("Theme")
                    titles: root.themes
                    current: root.screen.theme
                    availableWidth: page.width - 2 * page.horizontalPadding
                    onChosen: index => root.screen.setTheme(index)
                }
            }
            SettingsRow {
                id: motionRow

                width: parent.width
                title: qsTr("Motion")
                note: qsTr("Reduced motion fades where it would slide.")
                isStacked: motionBar.implicitWidth > width * 0.7

                ChoiceBar {
                    id: motionBar

                    width: motionRow.isStacked ? availableWidth : implicitWidth
                    name: qsTr("Motion")
                    titles: root.motions
                    current: root.screen.motion
                    availableWidth: page.width - 2 * page.horizontalPadding
                    onChosen: index => root.screen.setMotion(index)
                }
            }
            SettingsRow {
                width: parent.width
                visible: root.screen.hasMenuBars && Math.min(Screen.width, Screen.height) >= Theme.widestPhone
                title: qsTr("Show menu bar")
                note: qsTr("Otherwise Alt or F10 shows it.")

                ToggleSwitch {
                    text: qsTr("Show menu bar")
                    isOn: root.screen.showsMenuBar
                    onChosen: isOn => root.screen.setShowsMenuBar(isOn)
                }
            }
            SettingsRow {
                width: parent.width
                title: qsTr("Text size of the desktop")
                note: root.screen.textSizeName
                hasSeparator: !root.screen.hasOwnTextSize

                ToggleSwitch {
                    text: qsTr("Text size of the desktop")
                    isOn: !root.screen.hasOwnTextSize
                    onChosen: isOn => root.screen.setHasOwnTextSize(!isOn)
                }
            }
            TextSizeSlider {
                width: parent.width
                visible: root.screen.hasOwnTextSize
                size: root.screen.textSize
                sizeName: root.screen.textSizeName
                onChosen: size => root.screen.setTextSize(size)
            }
        }
        SettingsSection {
            width: parent.width
            title: qsTr("Players to Ignore")

            StyledText {
                width: parent.width
                visible: players.count === 0
                text: qsTr("Other players are listed here while they run.")
                style: Theme.footnote
                color: Theme.secondaryLabel
                wrapMode: Text.Wrap
            }
            Repeater {
                id: players

                model: root.screen.players

                delegate: SettingsRow {
                    id: player

                    required property int index
                    required property bool isOn

                    width: parent.width
                    hasSeparator: index < players.count - 1

                    ToggleSwitch {
                        text: qsTr("Ignore %1").arg(player.title)
                        isOn: player.isOn
                        onChosen: isOn => root.screen.setPlayerIgnored(player.index, isOn)
                    }
                }
            }
        }
    }
}
