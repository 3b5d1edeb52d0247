// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Picker
import Trackwise.Ui

/// A row's small artwork, or a note on a plain ground until there is one.
Rectangle {
    id: root

    required property url source
    property bool isRound: false
    readonly property real cornerRadius: 6
    readonly property real glyphShare: 0.5

    radius: root.isRound ? root.width / 2 : root.cornerRadius
    color: Theme.systemFill
    Accessible.ignored: true

    Symbol {
        anchors.centerIn: parent
        visible: image.status !== Image.Ready
        name: root.isRound ? "person" : "music.note"
        size: Math.round(root.width * root.glyphShare)
        color: Theme.secondaryLabel
    }
    Image {
        id: image

        anchors.fill: parent
        source: root.source
        sourceSize.width: Math.ceil(root.width * Screen.devicePixelRatio)
        sourceSize.height: Math.ceil(root.height * Screen.devicePixelRatio)
        fillMode: Image.PreserveAspectCrop
        asynchronous: true
        Accessible.ignored: true
    }
}
