// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// The twelve text sizes between a small and a large letter. A size is chosen when the slider is let go, for
/// everything on the screen moves with it.
Item {
    id: root

    required property int size
    required property string sizeName

    signal chosen(int size)

    readonly property int lastSize: 11
    readonly property real trackHeight: 4
    readonly property real knobSize: 26
    readonly property real gap: 10

    implicitHeight: Theme.touchTarget

    Text {
        id: small

        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        text: "A"
        textFormat: Text.PlainText
        font.pixelSize: 13
        color: Theme.secondaryLabel
        Accessible.ignored: true
    }
    Text {
        id: large

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: "A"
        textFormat: Text.PlainText
        font.pixelSize: 24
        color: Theme.secondaryLabel
        Accessible.ignored: true
    }
    T.Slider {
        id: slider

        anchors.left: small.right
        anchors.right: large.left
        anchors.leftMargin: root.gap
        anchors.rightMargin: root.gap
        height: parent.height
        from: 0
        to: root.lastSize
        stepSize: 1
        snapMode: T.Slider.SnapAlways
        value: root.size
        focusPolicy: Qt.StrongFocus
        onMoved: pressed || root.chosen(slider.value)
        onPressedChanged: pressed || root.chosen(slider.value)
        Accessible.role: Accessible.Slider
        Accessible.name: qsTr("Text size")
        Accessible.description: root.sizeName

        background: Item {
            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                x: root.knobSize / 2
                width: parent.width - root.knobSize
                height: root.trackHeight
                radius: height / 2
                color: Theme.systemFill
            }
            Row {
                anchors.verticalCenter: parent.verticalCenter
                x: root.knobSize / 2 - root.trackHeight / 2
                spacing: (parent.width - root.knobSize) / root.lastSize - root.trackHeight

                Repeater {
                    model: root.lastSize + 1

                    delegate: Rectangle {
                        width: root.trackHeight
                        height: root.trackHeight * 2
                        radius: width / 2
                        color: Theme.secondaryLabel
                    }
                }
            }
        }
        handle: Rectangle {
            x: slider.visualPosition * (slider.width - width)
            anchors.verticalCenter: parent.verticalCenter
            width: root.knobSize
            height: width
            radius: width / 2
            color: Theme.accent
            opacity: slider.pressed ? 0.6 : 1

            FocusRing {
                visible: slider.visualFocus
                radius: height / 2
            }
        }
    }
}
