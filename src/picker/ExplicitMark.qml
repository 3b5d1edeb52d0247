// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// The small letter behind the title of a song with explicit words.
Rectangle {
    id: root

    readonly property real air: 2

    implicitWidth: Math.max(letter.implicitWidth + 2 * root.air, implicitHeight)
    implicitHeight: letter.implicitHeight + root.air
    radius: 3
    color: Theme.secondaryLabel
    Accessible.ignored: true

    StyledText {
        id: letter

        anchors.centerIn: parent
        text: qsTr("E", "mark of a song with explicit words")
        style: Theme.caption2
        font.weight: Font.DemiBold
        color: Theme.tertiarySystemBackground
        Accessible.ignored: true
    }
}
