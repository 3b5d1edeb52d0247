// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Settings
import Trackwise.Ui

/// Whether the microphone may be used, which input that is, and what comes in there.
SettingsSection {
    id: root

    required property SettingsScreen screen
    /// The part of the page that is in sight.
    required property real viewTop
    required property real viewBottom

    readonly property real meterTop: y + meterRow.y
    readonly property bool isMeterInSight: meterRow.visible && meterTop < viewBottom && meterTop + meterRow.height > viewTop

    title: qsTr("Microphone")

    Binding {
        target: root.screen.input
        property: "isWatched"
        value: root.isMeterInSight && root.Window.active
    }
    SettingsRow {
        width: parent.width
        title: qsTr("Microphone access")
        note: qsTr("For recognizing the music around you. What is heard stays on this device.")

        ToggleSwitch {
            text: qsTr("Microphone access")
            isOn: root.screen.isMicrophoneAllowed
            onChosen: isOn => root.screen.setMicrophoneAllowed(isOn)
        }
    }
    InputChoices {
        width: parent.width
        name: qsTr("Input")
        choices: root.screen.input.choices
        onChosen: row => root.screen.input.choose(row)
    }
    SettingsRow {
        id: meterRow

        width: parent.width
        visible: root.screen.isMicrophoneAllowed
        title: qsTr("Level")
        note: root.screen.input.note
        hasSeparator: false

        LevelMeter {
            name: qsTr("Level")
            level: root.screen.input.level
        }
    }
}
