// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// The buttons of an alert: side by side when there are two that fit, else one below the other. The one that
/// cancels comes first in a row and last in a column.
Grid {
    id: root

    required property Alert alert

    signal chosen(int index)

    readonly property list<string> titles: root.alert ? root.alert.actionTitles : []
    readonly property real widestText: Math.max(first.advanceWidth, second.advanceWidth)
    readonly property real inset: 8
    readonly property bool fitsInRow: root.widestText + 2 * root.inset <= root.width / 2
    readonly property bool isRow: root.titles.length === 2 && root.fitsInRow && !Theme.isAccessibilitySize

    /// Gives the keyboard focus to the preferred button.
    function focusPreferred() {
        repeater.itemAt(root.alert.preferredAction).forceActiveFocus();
    }

    columns: isRow ? 2 : 1
    // In a row the cancelling button, which is the last action, stands at the leading edge.
    layoutDirection: isRow ? Qt.RightToLeft : Qt.LeftToRight

    TextMetrics {
        id: first

        font: Theme.headline.font // the wider one
        text: root.titles[0] ?? ""
    }
    TextMetrics {
        id: second

        font: first.font
        text: root.titles[1] ?? ""
    }
    Repeater {
        id: repeater

        model: root.titles

        delegate: BaseButton {
            id: button

            required property int index
            required property string modelData

            width: root.isRow ? root.width / 2 : root.width
            height: Math.max(Theme.touchTarget, label.implicitHeight + 16)
            leftPadding: root.inset
            rightPadding: root.inset
            opacity: 1
            text: modelData
            onClicked: root.chosen(button.index)
            ring.anchors.margins: 3
            ring.radius: 11

            background: Item {
                Rectangle {
                    anchors.fill: parent
                    anchors.margins: 3
                    radius: 11
                    color: Theme.systemFill
                    opacity: Math.max(button.down ? 1 : 0, button.hovered ? 0.5 : 0)
                }
                Separator {
                    height: parent.height
                    anchors.right: parent.right
                    visible: root.isRow && button.index === 1
                }
                Separator {
                    width: parent.width
                    visible: !root.isRow && button.index > 0
                }
            }
            contentItem: StyledText {
                id: label

                text: button.text
                style: root.alert && button.index === root.alert.preferredAction ? Theme.headline : Theme.body
                color: Theme.accent
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }
    }
}
