// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// A row of small lights, of which the more are lit the louder it is.
Item {
    id: root

    required property string name
    required property real level ///< from 0 to 1

    readonly property int lights: 16
    readonly property real gap: 3
    readonly property real lightWidth: 5
    readonly property real lightHeight: 14

    implicitWidth: root.lights * (root.lightWidth + root.gap) - root.gap
    implicitHeight: root.lightHeight
    Accessible.role: Accessible.ProgressBar
    Accessible.name: root.name

    Row {
        anchors.fill: parent
        spacing: root.gap

        Repeater {
            model: root.lights

            delegate: Rectangle {
                required property int index

                width: root.lightWidth
                height: root.lightHeight
                radius: width / 2
                color: index < Math.ceil(root.level * root.lights) ? Theme.accent : Theme.systemFill
            }
        }
    }
}
