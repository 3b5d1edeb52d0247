// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Information
import Trackwise.Ui

/// The lyrics of a song as one text, to be read, selected and copied.
ScrollingPage {
    id: root

    required property string lyrics
    readonly property string title: qsTr("Lyrics")

    verticalPadding: 16
    Accessible.role: Accessible.Pane
    Accessible.name: root.title

    CopyableLabelView {
        width: parent.width
        text: root.lyrics
        style: Theme.body
        isAccessible: true
    }
}
