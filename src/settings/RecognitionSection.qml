// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Settings
import Trackwise.Ui

/// What is known of the library's sound.
SettingsSection {
    id: root

    required property IndexStatus index

    title: qsTr("Music Recognition")

    SettingsRow {
        width: parent.width
        title: qsTr("Get to know songs by ear")
        note: root.index.text

        ToggleSwitch {
            text: qsTr("Get to know songs by ear")
            isOn: !root.index.isPaused
            onChosen: isOn => root.index.setPaused(!isOn)
        }
    }
    PlainButton {
        anchors.left: parent.left
        maximumWidth: parent.width
        height: Math.max(Theme.touchTarget, implicitHeight)
        text: qsTr("Begin Anew")
        symbolName: "arrow.clockwise"
        style: Theme.isAccessibilitySize ? Theme.footnote : Theme.body
        onClicked: root.index.rebuild()
    }
    PlainButton {
        anchors.left: parent.left
        maximumWidth: parent.width
        height: Math.max(Theme.touchTarget, implicitHeight)
        enabled: !root.index.isEmpty
        text: qsTr("Forget All Songs")
        symbolName: "xmark.circle"
        style: Theme.isAccessibilitySize ? Theme.footnote : Theme.body
        onClicked: root.index.clear()
    }
}
