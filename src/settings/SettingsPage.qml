// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Trackwise.Ui

/// A page of controls that scrolls, and keeps the control with the keyboard focus in view.
Flickable {
    id: root

    property real margin: 18
    default property alias content: column.data

    readonly property real spaceBelow: 24
    readonly property real air: 24
    readonly property Item focused: Window.activeFocusItem

    function bringIntoView(item: Item) {
        const top = item.mapToItem(column, 0, 0).y;
        root.contentY = Math.max(Math.min(root.contentY, top - root.air), Math.min(top + item.height + root.air, root.contentHeight) - root.height, 0);
    }

    contentWidth: width
    contentHeight: column.height
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    onFocusedChanged: root.focused && root.focused !== column && column.contains(column.mapFromItem(root.focused, 0, 0)) && root.focused.activeFocus && root.activeFocus && root.bringIntoView(root.focused)

    Column {
        id: column

        x: root.margin
        width: root.width - 2 * root.margin
        bottomPadding: root.spaceBelow
    }

    T.ScrollBar.vertical: T.ScrollBar {
        id: bar

        padding: 2
        implicitWidth: 8
        visible: size < 1

        contentItem: Rectangle {
            radius: width / 2
            color: Theme.secondaryLabel
            opacity: bar.active ? 0.6 : 0.25
        }
    }
}
