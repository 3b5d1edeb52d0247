// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// A cross in a circle, which rises a little below the pointer. Escape does the same: it takes no focus.
BaseButton {
    id: root

    readonly property real symbolSize: 30
    readonly property real cross: symbolSize / 2
    readonly property real lift: 1.1

    width: Theme.touchTarget
    height: Theme.touchTarget
    focusPolicy: Qt.NoFocus
    Accessible.ignored: true

    background: Item {}
    contentItem: Item {
        // The cross is a gap in the circle: its colour lies below.
        Rectangle {
            anchors.centerIn: parent
            width: root.cross
            height: width
            radius: width / 2
            color: Theme.accent
            scale: root.hovered ? root.lift : 1

            Behavior on scale {
                NumberAnimation {
                    duration: Theme.hoverDuration
                }
            }
            Symbol {
                anchors.centerIn: parent
                name: "xmark.circle.fill"
                size: root.symbolSize
                color: Theme.systemFill
            }
        }
    }
}
