// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// Asks for a review, now and then, without getting in the way.
Rectangle {
    id: root

    signal rateRequested
    signal dismissed

    readonly property real inset: 18

    implicitWidth: Math.min(parent.width - 2 * inset, Math.max(question.implicitWidth, buttons.width) + 2 * inset)
    implicitHeight: column.implicitHeight + 2 * inset
    radius: 14
    color: Theme.tertiarySystemBackground
    border.width: 1
    border.color: Theme.separator
    Accessible.role: Accessible.Dialog
    Accessible.name: question.text

    Column {
        id: column

        anchors.centerIn: parent
        width: parent.width - 2 * root.inset
        spacing: 6

        StyledText {
            id: question

            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: qsTr("Do you like Trackwise?")
            style: Theme.headline
        }
        Row {
            id: buttons

            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 28

            PlainButton {
                height: Theme.touchTarget
                text: qsTr("Not Now")
                onClicked: root.dismissed()
            }
            PlainButton {
                height: Theme.touchTarget
                text: qsTr("Write a Review")
                onClicked: root.rateRequested()
            }
        }
    }
}
