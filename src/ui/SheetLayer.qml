// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// Shows the sheet of a presentation over its window.
T.Popup {
    id: root

    required property Presentation presentation

    readonly property size room: parent ? Qt.size(parent.width, parent.height) : Qt.size(0, 0)
    // Of this sheet: it is asked for anew with each.
    readonly property rect frame: root.presentation.sheet ? root.presentation.sheetFrame(room) : Qt.rect(0, 0, 0, 0)
    readonly property bool reachesLowerEdge: frame.bottom >= room.height
    readonly property bool isFullScreen: frame.height >= room.height
    readonly property bool slides: !Theme.reducesMotion

    parent: T.Overlay.overlay
    x: frame.x
    y: frame.y
    width: frame.width
    height: frame.height
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
        visible: root.presentation.sheet?.hasOwnSize !== true
        color: Theme.isDark ? Theme.secondarySystemBackground : Theme.systemBackground
        radius: root.isFullScreen ? 0 : Theme.sheetRadius

        // On a phone the sheet reaches the lower edge: only its upper corners are round.
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: parent.radius
            visible: root.reachesLowerEdge
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
            to: root.slides ? root.frame.y : 1
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
