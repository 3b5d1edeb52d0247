// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Recognition
import Trackwise.Ui

/// Shows the HUD of music recognition over everything else in its window, and lets everything else go on. Screen
/// readers get announcements in its place.
T.Popup {
    id: root

    required property RecognitionHUD hud

    readonly property real hiddenY: -100
    readonly property real restingY: -3
    readonly property bool slides: !Theme.reducesMotion

    parent: T.Overlay.overlay
    width: implicitContentWidth
    height: topPadding + implicitContentHeight
    x: parent ? (parent.width - width) / 2 : 0
    y: restingY
    z: 1 // sheets and alerts have 0
    topPadding: 14 // of the window's edge, where phones have their status bar
    visible: root.hud.isVisible
    closePolicy: T.Popup.NoAutoClose
    onAboutToShow: root.contentItem.parent.Accessible.ignored = true
    onClosed: root.hud.didHide()
    Component.onCompleted: root.hud.setAnimated(true)

    contentItem: HUDView {
        Loader {
            anchors.fill: parent
            active: root.hud.config !== null
            sourceComponent: ShazamHUDContent {
                config: root.hud.config
                level: root.hud.level
                minimumScale: root.hud.minimumScale(Theme.textScale)
                onCancelRequested: root.hud.cancel()
            }
        }
    }

    enter: Transition {
        NumberAnimation {
            property: "y"
            from: root.slides ? root.hiddenY : root.restingY
            to: root.restingY
            duration: root.hud.slideInDuration
            easing: root.hud.slideIn
        }
        NumberAnimation {
            property: "opacity"
            from: root.slides ? 1 : 0
            to: 1
            duration: Theme.alertDuration
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "y"
            to: root.slides ? root.hiddenY : root.restingY
            duration: root.slides ? root.hud.slideOutDuration : Theme.alertDuration
            easing: root.hud.slideOut
        }
        NumberAnimation {
            property: "opacity"
            to: root.slides ? 1 : 0
            duration: Theme.alertDuration
        }
    }
}
