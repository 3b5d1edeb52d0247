// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Ui

/// The ground of what floats above a screen: a plate with a soft edge, made without shader effects from three
/// ever fainter outlines.
Item {
    id: root

    property real radius: 12

    Repeater {
        model: 3

        Rectangle {
            required property int index

            anchors.fill: parent
            anchors.margins: -1 - 2 * index
            anchors.topMargin: 1 - index
            radius: root.radius + 2 * index
            color: "#000000"
            opacity: 0.05
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: Theme.tertiarySystemBackground
        border.width: 1 / Screen.devicePixelRatio
        border.color: Theme.separator
    }
}
