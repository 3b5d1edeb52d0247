// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Ui

/// A capsule that floats above the window, always of the same size whatever is in it.
Item {
    id: root

    default property alias content: contentItem.data

    readonly property int shadowRadius: 12
    readonly property real shadowOffset: 4
    readonly property real shadowOpacity: 0.08

    implicitWidth: 290
    implicitHeight: 50
    Accessible.ignored: true

    // The shadow, made without shader effects from ever wider and fainter capsules around the shadow's edge.
    Repeater {
        model: root.shadowRadius

        Rectangle {
            required property int index
            readonly property real spread: 2 * index - root.shadowRadius + 1

            anchors.fill: parent
            anchors.margins: -spread
            anchors.topMargin: root.shadowOffset - spread
            anchors.bottomMargin: -root.shadowOffset - spread
            radius: height / 2
            color: "#000000"
            opacity: root.shadowOpacity / root.shadowRadius
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Theme.thinMaterial
        border.width: 1 / Screen.devicePixelRatio
        border.color: Theme.separator
    }
    Item {
        id: contentItem

        anchors.fill: parent
    }
}
