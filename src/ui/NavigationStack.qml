// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// The root screen and those pushed onto it. The new one slides over the old one, which moves a third; with
/// reduced motion they cross-fade.
T.StackView {
    id: root

    required property Presentation presentation

    readonly property real direction: LayoutMirroring.enabled ? -1 : 1
    readonly property bool slides: !Theme.reducesMotion

    clip: true
    Accessible.name: "Trackwise"
    onBusyChanged: root.busy || root.presentation.viewDidLeave()

    Connections {
        target: root.presentation

        function onDidPush(view: HostedView) {
            root.push("qrc:/qt/qml/Trackwise/Ui/PushedView.qml", {
                view: view,
                presentation: root.presentation
            });
        }
        function onDidPop() {
            root.pop();
        }
    }

    pushEnter: Transition {
        NumberAnimation {
            property: root.slides ? "x" : "opacity"
            from: root.slides ? root.direction * root.width : 0
            to: root.slides ? 0 : 1
            duration: Theme.pushDuration
            easing.type: Easing.OutCubic
        }
    }
    pushExit: Transition {
        NumberAnimation {
            property: root.slides ? "x" : "opacity"
            from: root.slides ? 0 : 1
            to: root.slides ? -root.direction * root.width / 3 : 0
            duration: Theme.pushDuration
            easing.type: Easing.OutCubic
        }
    }
    popEnter: Transition {
        NumberAnimation {
            property: root.slides ? "x" : "opacity"
            from: root.slides ? -root.direction * root.width / 3 : 0
            to: root.slides ? 0 : 1
            duration: Theme.pushDuration
            easing.type: Easing.OutCubic
        }
    }
    popExit: Transition {
        NumberAnimation {
            property: root.slides ? "x" : "opacity"
            from: root.slides ? 0 : 1
            to: root.slides ? root.direction * root.width : 0
            duration: Theme.pushDuration
            easing.type: Easing.OutCubic
        }
    }
}
