// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// The bubble over a held finger with the one choice "Copy". Open from the moment it is made.
T.Popup {
    id: root

    signal chosen

    readonly property real windowMargin: 8
    readonly property real cornerRadius: 12
    readonly property real textMargin: 18
    readonly property real shadowDrop: 4
    readonly property real shadowSpread: 1

    implicitWidth: button.implicitWidth
    implicitHeight: button.implicitHeight
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    focus: true
    margins: root.windowMargin
    visible: true

    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.margins: -root.shadowSpread
            anchors.topMargin: root.shadowDrop
            anchors.bottomMargin: -root.shadowDrop
            radius: root.cornerRadius
            color: "#000000"
            opacity: 0.08 // soft and low
        }
        Rectangle {
            anchors.fill: parent
            radius: root.cornerRadius
            color: Theme.tertiarySystemBackground
            border.color: Theme.separator
        }
    }

    contentItem: FocusScope {
        focus: true
        Accessible.role: Accessible.PopupMenu
        Accessible.name: button.text

        PlainButton {
            id: button

            anchors.fill: parent
            implicitHeight: Math.max(implicitContentHeight, Theme.touchTarget)
            horizontalPadding: root.textMargin
            focus: true
            text: qsTr("Copy")
            style: Theme.subheadline
            color: Theme.label
            onClicked: {
                root.chosen();
                root.close();
            }
        }
    }

    enter: Fade {
        from: 0
        to: 1
    }
    exit: Fade {
        to: 0
    }
}
