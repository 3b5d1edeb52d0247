// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.App
import Trackwise.Detail
import Trackwise.Recognition
import Trackwise.Ui

/// A window of the app: the sidebar with the artwork beside the navigation stack, and what is presented over
/// both.
T.ApplicationWindow {
    id: root

    required property ContainerViewController container
    required property Presentation presentation
    required property WindowMenus menus

    readonly property Item overlay: T.Overlay.overlay

    width: 1024
    height: 768
    minimumWidth: 320
    minimumHeight: 300
    title: qsTr("Trackwise")
    color: Theme.systemBackground
    LayoutMirroring.enabled: Theme.isRightToLeft
    LayoutMirroring.childrenInherit: true

    menuBar: MenuBarView {
        id: menuBarView

        visible: reveal.isVisible
        windowMenus: root.menus
        reveal: reveal
    }

    MenuBarReveal {
        id: reveal

        menuBar: menuBarView
        isAvailable: root.menus.isInWindow
        isAlwaysShown: root.menus.isAlwaysShown
        isCovered: root.overlay.visibleChildren.length > (hudLayer.visible ? 1 : 0)
    }
    Loader {
        active: root.menus.isOnDesktop
        Component.onCompleted: setSource("GlobalMenuBar.qml", { windowMenus: root.menus, window: root })
    }
    MenuKeys {
        menu: root.menus.applicationMenu
        isActive: root.active
    }
    MenuKeys {
        menu: root.menus.fileMenu
        isActive: root.active
    }
    AccessibleLayer {
        anchors.fill: parent
        isCovered: root.presentation.isSheetVisible || root.presentation.isAlertVisible
        focus: true
        Accessible.role: Accessible.Pane

        ContainerView {
            anchors.fill: parent
            container: root.container
            presentation: root.presentation
            focus: true
            Accessible.role: Accessible.Pane
        }
    }
    SheetLayer {
        presentation: root.presentation
    }
    AlertLayer {
        presentation: root.presentation
    }
    HUDLayer {
        id: hudLayer

        hud: root.container.detail.recognitionHUD
    }
    // Heard by screen readers whenever it is another text.
    Item {
        width: 1
        height: 1
        Accessible.role: Accessible.AlertMessage
        Accessible.name: root.container.detail.recognitionHUD.announcement
    }
    Shortcut {
        sequences: [StandardKey.Cancel]
        context: Qt.ApplicationShortcut
        enabled: root.active && root.container.detail.recognitionHUD.canCancel
        onActivated: root.container.detail.recognitionHUD.cancel()
    }
    Component.onCompleted: root.presentation.setAnimated(true)
}
