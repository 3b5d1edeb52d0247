// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// What everything has that is pressed, be it by pointer, Space, Return or screen reader: a target of at least 44
/// points, also where what is drawn is smaller, and a ring with the keyboard focus.
T.AbstractButton {
    id: root

    property alias ring: ring

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: (enabled ? 1 : 0.4) * (down ? 0.6 : 1)
    containmentMask: target
    onVisibleChanged: focus = focus && (visible || !activeFocus) // else it would be pressed unseen
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()

    Item {
        id: target

        anchors.centerIn: parent
        width: Math.max(root.width, Theme.touchTarget)
        height: Math.max(root.height, Theme.touchTarget)
    }
    FocusRing {
        id: ring

        anchors.fill: root.background
        visible: root.visualFocus
    }
}
