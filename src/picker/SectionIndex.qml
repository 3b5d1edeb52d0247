// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// The letters beside a long list. A click or a drag along them goes to the first row of a letter, which is
/// shown large meanwhile.
Item {
    id: root

    required property LibraryListModel list
    readonly property textStyle letterStyle: Theme.caption2.atMost(16) // the column stays narrow
    readonly property real letterHeight: letterStyle.lineHeight
    readonly property real bubbleSize: 2 * Theme.touchTarget
    property int section: 0

    signal rowChosen(int row)

    function choose(y: real) {
        root.section = Math.max(0, Math.min(root.list.sectionCount - 1, Math.floor((y - letters.y) / letters.height * root.list.sectionCount)));
        root.rowChosen(root.list.firstRowOfSection(root.section));
    }

    implicitWidth: 32 // letters may be wide; also what a finger needs to stay on the strip

    Accessible.role: Accessible.Slider
    Accessible.name: qsTr("Letters")
    Accessible.description: root.list.sectionLabel(root.section)
    Accessible.onIncreaseAction: root.choose(letters.y + (root.section + 1.5) * letters.height / root.list.sectionCount)
    Accessible.onDecreaseAction: root.choose(letters.y + (root.section - 0.5) * letters.height / root.list.sectionCount)

    Column {
        id: letters

        anchors.verticalCenter: parent.verticalCenter
        width: parent.width

        Repeater {
            model: root.list.hasSections ? root.list.indexLabels(Math.floor(root.height / root.letterHeight)) : []

            StyledText {
                required property string modelData

                width: letters.width
                text: modelData
                style: root.letterStyle
                color: Theme.secondaryLabel
                horizontalAlignment: Text.AlignHCenter
                Accessible.ignored: true
            }
        }
    }
    Rectangle {
        id: bubble

        anchors.right: parent.left
        anchors.rightMargin: root.bubbleSize / 4
        y: Math.max(0, Math.min(root.height - height, pointer.mouseY - height / 2))
        width: root.bubbleSize
        height: root.bubbleSize
        radius: width / 2
        color: Theme.systemFill
        visible: pointer.pressed

        StyledText {
            anchors.centerIn: parent
            text: root.list.sectionLabel(root.section)
            style: Theme.largeTitle
            Accessible.ignored: true
        }
    }
    MouseArea {
        id: pointer

        anchors.fill: parent
        preventStealing: true
        onPressed: mouse => root.choose(mouse.y)
        onPositionChanged: mouse => root.choose(mouse.y)
    }
}
