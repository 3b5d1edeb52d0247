// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// A slim bar at the edge of a list, seen while the list moves or the pointer is on it.
T.ScrollBar {
    id: root

    readonly property real shown: 0.5
    readonly property real shortest: 0.08 // of the list's height, so that it can be grasped

    implicitWidth: contentItem.implicitWidth + leftPadding + rightPadding
    padding: 3
    minimumSize: root.shortest
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: root.pressed || root.hovered ? 8 : 4
        radius: width / 2
        color: Theme.secondaryLabel
        opacity: root.active && root.size < 1 ? root.shown : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverDuration
            }
        }
    }
}
