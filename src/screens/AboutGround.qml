// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Screens

/// The ground of the about screen: two colours that drift. Where shaders do not run it is one colour.
Rectangle {
    id: root

    property bool drifts: false
    readonly property color firstColor: Qt.rgba(0.976963, 0.360997, 0.456835, 1)
    readonly property color lastColor: Qt.rgba(0.974086, 0.14863, 0.2378, 1)

    readonly property color middleColor: Qt.rgba(0.975525, 0.254814, 0.347318, 1)

    color: GraphicsInfo.api === GraphicsInfo.Software ? middleColor : "transparent"
    Accessible.ignored: true

    GradientDrift {
        id: drift

        objectName: "drift"
        isRunning: root.drifts
        size: Qt.size(root.width, root.height)
        windowArea: root.Window.width * root.Window.height
    }
    ShaderEffect {
        readonly property real radius: root.radius
        readonly property size size: Qt.size(width, height)
        readonly property vector3d plane: drift.plane
        readonly property color firstColor: root.firstColor
        readonly property color lastColor: root.lastColor

        anchors.fill: parent
        fragmentShader: "qrc:/shaders/gradient.frag.qsb"
    }
}
