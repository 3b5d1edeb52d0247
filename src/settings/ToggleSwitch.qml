// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// A switch. It shows what is the case; whoever owns it is told what the user wants.
T.AbstractButton {
    id: root

    required property bool isOn

    signal chosen(bool isOn)

    readonly property real knobMargin: 2

    implicitWidth: 51
    implicitHeight: 31
    focusPolicy: Qt.StrongFocus
    opacity: !enabled ? 0.4 : down ? 0.6 : 1
    containmentMask: target
    checkable: true
    checked: root.isOn
    onToggled: {
        root.chosen(!root.isOn);
        root.checked = Qt.binding(() => root.isOn); // again; it is the owner who decides
    }
    Keys.onReturnPressed: root.toggled()
    Keys.onEnterPressed: root.toggled()
    Accessible.role: Accessible.CheckBox
    Accessible.name: root.text
    Accessible.checkable: true
    Accessible.checked: root.checked
    Accessible.onPressAction: root.toggled()
    Accessible.onToggleAction: root.toggled()

    background: Rectangle {
        radius: height / 2
        color: root.isOn ? Theme.accent : Theme.systemFill
        border.width: root.isOn ? 0 : 1
        border.color: Theme.separator

        Behavior on color {
            ColorAnimation {
                duration: Theme.hoverDuration
            }
        }
    }
    contentItem: Item {
        Rectangle {
            readonly property bool isTrailing: root.isOn !== root.mirrored

            x: isTrailing ? parent.width - width - root.knobMargin : root.knobMargin
            anchors.verticalCenter: parent.verticalCenter
            width: height
            height: parent.height - 2 * root.knobMargin
            radius: height / 2
            color: "#ffffff"
            border.width: root.isOn ? 0 : 1
            border.color: Theme.separator

            Behavior on x {
                NumberAnimation {
                    duration: Theme.hoverDuration
                    easing.type: Easing.OutCubic
                }
            }
        }
    }

    Item {
        id: target

        anchors.centerIn: parent
        width: Math.max(root.width, Theme.touchTarget)
        height: Math.max(root.height, Theme.touchTarget)
    }
    FocusRing {
        visible: root.visualFocus
        radius: height / 2
    }
}
