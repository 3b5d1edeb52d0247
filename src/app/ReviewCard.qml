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

    readonly property real availableWidth: parent.width - 4 * inset // around the card, and within

    implicitWidth: Math.min(availableWidth, Math.max(question.implicitWidth, buttons.rowWidth)) + 2 * inset
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
        Grid {
            id: buttons

            readonly property real rowWidth: notNow.implicitWidth + columnSpacing + review.implicitWidth

            anchors.horizontalCenter: parent.horizontalCenter
            columns: buttons.rowWidth <= root.availableWidth ? 2 : 1
            horizontalItemAlignment: Grid.AlignHCenter
            columnSpacing: 28

            PlainButton {
                id: notNow

                maximumWidth: root.availableWidth
                height: Math.max(Theme.touchTarget, implicitHeight)
                text: qsTr("Not Now")
                onClicked: root.dismissed()
            }
            PlainButton {
                id: review

                maximumWidth: root.availableWidth
                height: Math.max(Theme.touchTarget, implicitHeight)
                text: qsTr("Write a Review")
                onClicked: root.rateRequested()
            }
        }
    }
}
