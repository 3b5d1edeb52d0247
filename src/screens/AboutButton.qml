// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// One of the buttons of the about screen. Its letters shrink, to half their size at most, where there is no
/// room.
BaseButton {
    id: root

    required property color ink
    /// The share of the full width that there is room for.
    property real shrink: 1
    readonly property real naturalWidth: Math.ceil(measure.advanceWidth)
    readonly property textStyle style: Theme.body.bold()

    horizontalPadding: 15
    verticalPadding: 10
    ring.border.color: root.ink

    TextMetrics {
        id: measure

        font: root.style.font
        text: root.text
    }
    background: Rectangle {
        radius: 8
        color: "white"
        opacity: root.hovered ? 0.25 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverDuration
            }
        }
    }
    contentItem: Item {
        // A little more than measured: the fit would shrink a text that has just its room.
        implicitWidth: (root.naturalWidth + 1) * root.shrink
        implicitHeight: label.implicitHeight

        StyledText {
            id: label

            width: parent.width
            text: root.text
            style: root.style
            color: root.ink
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Math.round(root.style.font.pixelSize / 2)
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
