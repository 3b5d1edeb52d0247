// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// A switch. It shows what is the case; whoever owns it is told what the user wants.
BaseButton {
    id: root

    required property bool isOn

    signal chosen(bool isOn)

    readonly property real knobMargin: 2

    implicitWidth: 51
    implicitHeight: 31
    checkable: true
    checked: root.isOn
    onClicked: {
        root.chosen(!root.isOn);
        root.checked = Qt.binding(() => root.isOn); // again; it is the owner who decides
    }
    ring.radius: ring.height / 2
    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: root.checked
    Accessible.onToggleAction: root.clicked()

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
}
