// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// Asks for a review, now and then, without getting in the way.
FloatingGround {
    id: root

    signal rateRequested
    signal dismissed

    readonly property real inset: 18
    readonly property real insetBelowButtons: 6 // their area is higher than their text

    implicitWidth: Math.min(parent.width - 2 * inset, Math.max(question.implicitWidth, buttons.width) + 2 * inset)
    implicitHeight: column.implicitHeight + inset + insetBelowButtons
    radius: 14
    Accessible.role: Accessible.Dialog
    Accessible.name: question.text

    Column {
        id: column

        y: root.inset
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width - 2 * root.inset
        spacing: 4

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
