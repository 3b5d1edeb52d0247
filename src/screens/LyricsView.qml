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
        name: root.title
        page: root
    }

    // Wherever the focus is.
    Shortcut {
        sequences: ["Home"]
        onActivated: root.scrollForKey(Qt.Key_Home)
    }
    Shortcut {
        sequences: ["End"]
        onActivated: root.scrollForKey(Qt.Key_End)
    }
    Shortcut {
        sequences: ["PgUp"]
        onActivated: root.scrollForKey(Qt.Key_PageUp)
    }
    Shortcut {
        sequences: ["PgDown"]
        onActivated: root.scrollForKey(Qt.Key_PageDown)
    }
}
