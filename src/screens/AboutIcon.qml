// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Artwork

/// The program's icon as a tile with continuous corners and a soft shadow.
TileGround {
    id: root

    readonly property real side: 120

    implicitWidth: side
    implicitHeight: side
    color: "#f7f5f2" // the icon's own ground
    radius: 24
    shadowOpacity: 0.12
    shadowRadius: 10
    shadowOffset: 10
    Accessible.role: Accessible.Graphic
    Accessible.name: qsTr("App icon")

    Image {
        anchors.fill: parent
        source: "qrc:/icons/AboutIcon.svg"
        sourceSize.width: Math.ceil(root.width * Screen.devicePixelRatio)
        sourceSize.height: Math.ceil(root.height * Screen.devicePixelRatio)
        Accessible.ignored: true
    }
}
