// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Information
import Trackwise.Ui

/// The two ways to the "Copy" of a label: held touch and right click. Lies over the label's text without
/// taking its events.
Item {
    id: root

    required property CopyableLabel label
    /// What takes the focus when the text is touched.
    required property Item focusItem
    property point position
    readonly property real longPressSeconds: 0.5

    function didClose() {
        editMenu.active = false;
        root.focusItem.forceActiveFocus(Qt.PopupFocusReason);
    }
    function openEditMenu(touch: point) {
        root.focusItem.forceActiveFocus(Qt.MouseFocusReason);
        root.position = root.label.editMenuAnchor(touch);
        editMenu.active = true;
    }
    function openContextMenu(place: point) {
        contextMenu.openAt(place);
    }

    TapHandler {
        id: touchHandler

        acceptedDevices: PointerDevice.TouchScreen | PointerDevice.Stylus
        longPressThreshold: root.longPressSeconds
        onLongPressed: root.openEditMenu(touchHandler.point.position)
    }
    TapHandler {
        id: pointerHandler

        acceptedButtons: Qt.RightButton
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad | PointerDevice.Stylus
        onTapped: root.openContextMenu(pointerHandler.point.position)
    }
    Loader {
        id: editMenu

        active: false
        sourceComponent: EditMenu {
            parent: root
            x: root.position.x - width / 2
            y: root.position.y - height
            onChosen: root.label.copy()
            onClosed: root.didClose()
        }
    }
    CopyMenu {
        id: contextMenu

        focusItem: root.focusItem
        onChosen: root.label.copyCreationText()
    }
}
