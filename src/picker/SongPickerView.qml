// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// The song picker: a sheet's content. The search field has the keyboard focus as soon as the sheet has it.
FocusScope {
    id: root

    required property MediaPicker picker
    readonly property real cornerMargin: 4 // rows do not reach into the sheet's round corners
    readonly property real low: 420 // less than a header in three lines and four rows need
    readonly property bool isLow: height < low
    /// In a low sheet the search field stands where the title would.
    readonly property bool joinsHeader: isLow && !Theme.isAccessibilitySize && !picker.canGoBack

    focus: true
    implicitWidth: Theme.sheetWidth
    implicitHeight: 640

    Keys.onPressed: event => {
        event.accepted = root.picker.handleKey(event.key, event.modifiers, false) || root.picker.type(event.text);
    }
    Component.onCompleted: root.picker.prepare()

    Shortcut {
        sequences: [StandardKey.Find]
        onActivated: search.focusInput()
    }
    PickerTitleBar {
        id: titleBar

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        showsTitle: !root.joinsHeader
        picker: root.picker
    }
    SearchField {
        id: search

        anchors.top: titleBar.bottom
        anchors.topMargin: root.joinsHeader ? titleBar.gap / 2 - titleBar.height : 0
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.margin()
        anchors.rightMargin: root.joinsHeader ? titleBar.sides : Theme.margin()
        focus: true
        picker: root.picker
    }
    PickerPages {
        anchors.top: search.bottom
        anchors.topMargin: 4 // under the field's own air
        anchors.bottom: banners.top
        anchors.bottomMargin: banners.height > 0 ? 0 : root.cornerMargin
        anchors.left: parent.left
        anchors.right: parent.right
        isLow: root.isLow
        picker: root.picker
    }
    Column {
        id: banners

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right

        ProgressBanner {
            width: parent.width
            visible: root.picker.scan.isRunning
            fraction: root.picker.scan.fraction
            text: root.picker.scan.text
            note: root.picker.scan.folder
            commandTitle: qsTr("Stop Reading Music")
            commandSymbol: "xmark.circle.fill"
            onCommanded: root.picker.scan.cancel()
        }
        ProgressBanner {
            width: parent.width
            visible: root.picker.listening.isShown && !root.picker.scan.isRunning
            fraction: root.picker.listening.fraction
            text: root.picker.listening.text
            note: root.picker.listening.activity
            commandTitle: root.picker.listening.commandTitle
            commandSymbol: root.picker.listening.commandSymbol
            onCommanded: root.picker.listening.carryOut()
        }
    }
}
