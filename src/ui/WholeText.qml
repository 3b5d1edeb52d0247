// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// All of a text that is cut off where it stands: appears beside the pointer when that rests there.
T.ToolTip {
    id: root

    readonly property real widest: 360
    readonly property real room: T.Overlay.overlay ? T.Overlay.overlay.width - 2 * margins : widest

    implicitWidth: Math.min(contentItem.implicitWidth + leftPadding + rightPadding, widest, room)
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    delay: 500 // milliseconds
    padding: 10
    margins: 8

    background: FloatingGround {
        radius: 8
    }
    contentItem: StyledText {
        text: root.text
        style: Theme.footnote
        wrapMode: Text.Wrap
    }
}
