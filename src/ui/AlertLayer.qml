// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// Shows the alerts of a presentation, one after the other, over everything else in its window. Return
/// chooses the preferred action, Escape the one that cancels.
T.Popup {
    id: root

    required property Presentation presentation
    readonly property Alert alert: root.presentation.alert

    readonly property real alertWidth: Theme.isAccessibilitySize ? 420 : 290
    readonly property real inset: 18

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(alertWidth, parent ? parent.width - 32 : alertWidth)
    height: Math.min(implicitHeight, parent ? parent.height - 32 : implicitHeight)
    implicitHeight: contentColumn.implicitHeight
    modal: true
    focus: true
    visible: root.presentation.isAlertVisible
    closePolicy: T.Popup.NoAutoClose
    onOpened: buttons.focusPreferred()
    onClosed: root.presentation.alertDidHide()

    T.Overlay.modal: Rectangle {
        color: "#47000000" // 28 %; the popup itself takes the opacity to 1 and back
    }

    background: Rectangle {
        color: Theme.tertiarySystemBackground
        radius: 14
    }

    contentItem: AccessibleLayer {
        kind: AccessibleLayer.Alert
        name: root.alert ? root.alert.title : ""
        details: root.alert ? root.alert.message : ""
        focus: true
        Accessible.role: Accessible.AlertMessage
        Keys.onEscapePressed: root.presentation.chooseAlertAction(root.alert.cancelAction)
        Keys.onReturnPressed: root.presentation.chooseAlertAction(root.alert.preferredAction)
        Keys.onEnterPressed: root.presentation.chooseAlertAction(root.alert.preferredAction)

        Flickable {
            anchors.fill: parent
            contentHeight: contentColumn.implicitHeight
            interactive: contentHeight > height
            Accessible.role: Accessible.Pane
            clip: true

            Column {
                id: contentColumn

                width: root.width
                topPadding: root.inset

                StyledText {
                    x: root.inset
                    width: parent.width - 2 * root.inset
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    text: root.alert ? root.alert.title : ""
                    style: Theme.headline
                }
                StyledText {
                    x: root.inset
                    width: parent.width - 2 * root.inset
                    topPadding: 2
                    bottomPadding: root.inset
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    text: root.alert ? root.alert.message : ""
                    style: Theme.footnote
                }
                Separator {
                    width: parent.width
                }
                AlertButtons {
                    id: buttons

                    width: parent.width
                    alert: root.alert
                    onChosen: index => root.presentation.chooseAlertAction(index)
                }
            }
        }
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.alertDuration
        }
        NumberAnimation {
            property: "scale"
            from: Theme.reducesMotion ? 1 : 1.08
            to: 1
            duration: Theme.alertDuration
            easing.type: Easing.OutCubic
        }
    }
    exit: Fade {
        to: 0
        duration: Theme.alertDuration
    }
}
