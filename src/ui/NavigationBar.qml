// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// The bar at the top of a screen: something at either end, and a title between them.
Item {
    id: root

    property string title: ""
    property real margin: Theme.margin(true)
    default property alias content: ends.data
    readonly property real barHeight: 52
    /// Shown while what is below the bar has been scrolled.
    property bool hasLine: false

    implicitHeight: barHeight

    StyledText {
        id: titleText

        anchors.centerIn: parent
        width: Math.min(implicitWidth, root.width * 0.5)
        text: root.title
        style: Theme.barTitle
        elide: Text.ElideRight
        Accessible.ignored: root.title === ""
        Accessible.role: Accessible.Heading
        Accessible.name: root.title
    }
    Separator {
        anchors.bottom: parent.bottom
        width: parent.width
        visible: root.hasLine
    }
    Item {
        id: ends

        anchors.fill: parent
        anchors.leftMargin: root.margin
        anchors.rightMargin: root.margin
    }
}
