// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// A ring around the control that has the keyboard focus: a child of that control, shown while `visible`.
Rectangle {
    readonly property real air: 2

    anchors.fill: parent
    anchors.margins: -(air + border.width)
    color: "transparent"
    radius: 8
    border.width: 2
    border.color: Theme.accent
    Accessible.ignored: true
}
