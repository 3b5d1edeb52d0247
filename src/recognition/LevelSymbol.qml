// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// The outline of a symbol, and as much of the filled one as the level says, from the bottom of its body to the top.
Item {
    id: root

    required property string outline
    required property string filled
    required property real size
    required property color color
    required property real level ///< from 0 to 1

    // Of the microphone; shares of its height.
    readonly property real bodyTop: 1.8 / 24
    readonly property real bodyBottom: 14.2 / 24
    readonly property real fillHeight: root.size * (root.bodyBottom - root.bodyTop) * root.level

    width: root.size
    height: root.size

    Symbol {
        name: root.outline
        size: root.size
        color: root.color
    }
    Item {
        y: root.size * root.bodyBottom - height
        width: root.size
        height: root.fillHeight
        clip: true

        Behavior on height {
            enabled: !Theme.reducesMotion

            NumberAnimation {
                duration: 80
            }
        }
        Symbol {
            y: -parent.y
            name: root.filled
            size: root.size
            color: root.color
        }
    }
}
