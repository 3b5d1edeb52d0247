// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// Shows where a page or a list stands: slim, over its edge, fading while nothing moves.
T.ScrollBar {
    id: root

    property real thickness: 4
    property real resting: 0.25 ///< opacity while nothing moves
    readonly property real shortestThumb: 36

    implicitWidth: thickness + 2 * padding
    padding: 2
    minimumSize: shortestThumb / Math.max(shortestThumb, height)
    policy: T.ScrollBar.AsNeeded
    visible: size < 1
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: root.thickness
        radius: width / 2
        color: Theme.secondaryLabel
        opacity: Math.max(root.pressed || root.hovered ? 0.8 : 0, root.active ? 0.6 : 0, root.resting)

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverDuration
            }
        }
    }
}
