// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// The ways to look through the library, side by side, and in further lines where that is too wide.
Flow {
    id: root

    required property MediaPicker picker
    readonly property list<string> names: [qsTr("Songs"), qsTr("Artists"), qsTr("Albums"), qsTr("Recently Added")]

    leftPadding: Theme.margin()
    rightPadding: Theme.margin()
    spacing: 2

    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Lists")

    Repeater {
        id: tabs

        model: root.names

        delegate: PickerTab {
            required property int index
            required property string modelData

            picker: root.picker
            tab: index // in the order of the enumeration
            text: modelData
            KeyNavigation.left: tabs.itemAt(index - 1)
        }
    }
}
