// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Artwork
import Trackwise.Picker
import Trackwise.Ui

/// A row's small artwork, or a symbol on a plain ground until there is one.
Rectangle {
    id: root

    required property string source
    property bool isRound: false
    readonly property real cornerRadius: 6
    readonly property real symbolShare: 0.5

    radius: root.isRound ? root.width / 2 : root.cornerRadius
    color: Theme.systemFill
    Accessible.ignored: true

    Symbol {
        anchors.centerIn: parent
        visible: !picture.hasPicture
        name: root.isRound ? "person" : "music.note"
        size: Math.round(root.width * root.symbolShare)
        color: Theme.secondaryLabel
    }
    ArtworkPicture {
        id: picture

        anchors.fill: parent
        source: root.source
        radius: root.radius
    }
}
