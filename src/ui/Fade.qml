// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// The coming or going of what floats above a screen.
Transition {
    property alias from: animation.from
    property alias to: animation.to
    property alias duration: animation.duration

    NumberAnimation {
        id: animation

        property: "opacity"
        duration: Theme.hoverDuration
    }
}
