// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// The way to the music app: a symbol that lifts towards the pointer.
FocusableItem {
    id: root

    required property real size
    readonly property real liftedScale: 1.1
    signal activated

    implicitWidth: root.size
    implicitHeight: root.size
    activeFocusOnTab: true
    containmentMask: target
    onVisibleChanged: focus = focus && (visible || !activeFocus) // else it would be pressed unseen

    Accessible.role: Accessible.Link
    Accessible.name: qsTr("Open Music app")
    Accessible.focusable: true
    Accessible.onPressAction: root.activated()

    Keys.onReturnPressed: root.activated()
    Keys.onEnterPressed: root.activated()
    Keys.onSpacePressed: root.activated()

    Symbol {
        anchors.fill: parent
        name: "music"
        size: root.size
        scale: hover.hovered ? root.liftedScale : 1
        opacity: tap.pressed ? 0.6 : 1

        Behavior on scale {
            NumberAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutCubic
            }
        }
    }
    FocusRing {
        radius: width / 2
        visible: root.hasKeyboardFocus
    }
    Item {
        id: target

        anchors.centerIn: parent
        width: Math.max(root.width, Theme.touchTarget)
        height: Math.max(root.height, Theme.touchTarget)
    }
    HoverHandler {
        id: hover

        cursorShape: Qt.PointingHandCursor
    }
    TapHandler {
        id: tap

        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.activated()
    }
}
