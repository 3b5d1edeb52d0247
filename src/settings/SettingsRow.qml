// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import Trackwise.Ui

/// A setting: its name, a word about it, and at the other end (at the largest text sizes below) its control.
Item {
    id: root

    required property string title
    property string note: ""
    property bool isStacked: Theme.isAccessibilitySize
    property bool hasSeparator: true
    default property alias control: place.data

    readonly property real padding: 8
    readonly property real gap: 12

    implicitHeight: Math.round(grid.implicitHeight + 2 * padding)

    GridLayout {
        id: grid

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        columns: root.isStacked ? 1 : 2
        columnSpacing: root.gap
        rowSpacing: root.padding

        Column {
            Layout.fillWidth: true
            Layout.minimumHeight: root.isStacked ? 0 : 32 // keeps rows with and without controls alike
            topPadding: Math.max(0, (Layout.minimumHeight - titleText.height - noteText.usedHeight) / 2)

            StyledText {
                id: titleText

                width: parent.width
                text: root.title
                style: Theme.body.keepingWords(root.title, width)
                horizontalAlignment: Text.AlignLeft // or right, where one reads from there
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
            StyledText {
                id: noteText

                readonly property real usedHeight: visible ? height : 0

                width: parent.width
                visible: text !== ""
                text: root.note
                style: Theme.footnote
                color: Theme.secondaryLabel
                horizontalAlignment: Text.AlignLeft
                wrapMode: Text.Wrap
            }
        }
        Row {
            id: place

            Layout.fillWidth: root.isStacked
            Layout.alignment: Qt.AlignVCenter
        }
    }
    Separator {
        anchors.bottom: parent.bottom
        width: parent.width
        visible: root.hasSeparator
    }
}
