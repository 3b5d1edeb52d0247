// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// A page of controls that scrolls, and shows what the keyboard focus reaches.
Flickable {
    id: root

    property real margin: 18
    default property alias content: column.data

    readonly property real spaceBelow: 24
    readonly property real air: 24

    contentWidth: width
    contentHeight: column.height
    clip: true
    boundsBehavior: Flickable.StopAtBounds

    Column {
        id: column

        x: root.margin
        width: root.width - 2 * root.margin
        bottomPadding: root.spaceBelow
    }

    KeyboardReveal {
        page: root
        air: root.air
        onScrollWanted: contentY => root.contentY = contentY
    }

    T.ScrollBar.vertical: SlimScrollBar {}
}
