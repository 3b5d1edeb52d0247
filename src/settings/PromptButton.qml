// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// One of the answers to a question that fills a sheet; the one that is suggested is filled.
BaseButton {
    id: root

    property bool isFilled: false

    readonly property real shortest: 50

    implicitHeight: Math.max(shortest, Math.round(label.implicitHeight + 20))
    ring.radius: 16

    background: Rectangle {
        radius: 12
        color: root.isFilled ? Theme.accent : Theme.systemFill
        opacity: root.isFilled || root.hovered ? 1 : 0.6
    }
    contentItem: StyledText {
        id: label

        text: root.text
        style: Theme.headline
        color: root.isFilled ? Theme.onAccent : Theme.label
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
