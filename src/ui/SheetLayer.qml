// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// Shows the sheet of a presentation over its window: as wide as a phone, or of a width of its own, and centred.
T.Popup {
    id: root

    required property Presentation presentation

    readonly property size room: parent ? Qt.size(parent.width, parent.height) : Qt.size(0, 0)
    readonly property bool isWide: room.width >= Theme.regularWidth
    readonly property real low: 560
    readonly property real wideMargin: room.height < low ? topGap : 40
    readonly property real tallest: 820
    readonly property real topGap: 12
    readonly property real restingY: isWide ? (room.height - height) / 2 : topGap
    readonly property bool slides: !Theme.reducesMotion

    parent: T.Overlay.overlay
    x: (room.width - width) / 2
    y: restingY
    width: isWide ? Theme.sheetWidth : room.width
    height: isWide ? Math.min(tallest, room.height - 2 * wideMargin) : room.height - topGap
    modal: true
    focus: true
    visible: root.presentation.isSheetVisible
    closePolicy: T.Popup.NoAutoClose
    onClosed: root.presentation.sheetDidHide()

    T.Overlay.modal: Rectangle {
        color: "#4d000000" // 30 %; the popup itself takes the opacity to 1 and back

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.sheetDuration
            }
        }
        TapHandler {
            onTapped: root.presentation.cancelSheet()
        }
    }

    background: Rectangle {
        color: Theme.isDark ? Theme.secondarySystemBackground : Theme.systemBackground
        radius: 16

        // On a phone the sheet reaches the lower edge: only its upper corners are round.
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: parent.radius
            visible: !root.isWide
            color: parent.color
        }
    }

    contentItem: AccessibleLayer {
        kind: AccessibleLayer.Sheet
        name: root.presentation.sheet ? root.presentation.sheet.title : ""
        isCovered: root.presentation.isAlertVisible
        focus: true
        Accessible.role: Accessible.Dialog
        Keys.onEscapePressed: root.presentation.cancelSheet()

        ViewHost {
            anchors.fill: parent
            focus: true
            Accessible.role: Accessible.Pane
            view: root.presentation.sheet
        }
    }

    enter: Transition {
        NumberAnimation {
            property: root.slides ? "y" : "opacity"
            from: root.slides ? root.room.height : 0
            to: root.slides ? root.restingY : 1
            duration: Theme.sheetDuration
            easing.type: Easing.OutQuint
        }
    }
    exit: Transition {
        NumberAnimation {
            property: root.slides ? "y" : "opacity"
            to: root.slides ? root.room.height : 0
            duration: Theme.sheetDuration * 0.8 // leaves a little faster than it came
            easing.type: Easing.InCubic
        }
    }
}
