// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// A menu with the one command "Copy", at a place of the item that this is in.
Loader {
    id: root

    /// What has the focus when the menu has gone.
    property Item focusItem: parent
    property point place

    signal chosen

    function openAt(place: point) {
        root.place = place;
        root.active = true;
    }
    function didClose() {
        root.active = false;
        root.focusItem.forceActiveFocus(Qt.PopupFocusReason);
    }

    active: false
    sourceComponent: ContextMenu {
        parent: root.parent
        x: root.place.x
        y: root.place.y
        Component.onCompleted: open()
        onClosed: root.didClose()

        ContextMenuItem {
            text: qsTr("Copy")
            symbolName: "doc.on.doc"
            onTriggered: root.chosen()
        }
    }
}
