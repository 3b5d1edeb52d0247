// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Information
import Trackwise.Ui

/// Everything the library knows about one song. In a narrow window the song's artwork stands above it.
ScrollingPage {
    id: root

    required property SongInformation view
    /// What stands above the list in a narrow window; nothing when there is no such block.
    property Component artworkBlock: null

    readonly property real artworkPadding: 15
    readonly property real spaceAtEnd: 25

    widestContent: 950 // no tablet's pane is wider; further apart a title and its value do not belong together
    // The same item may come to show another song; its list starts at the top, and its rows have no focus.
    onViewChanged: root.startOver()

    Column {
        width: parent.width
        topPadding: root.artworkPadding
        visible: artwork.active

        Loader {
            id: artwork

            width: parent.width
            active: root.artworkBlock !== null && !root.isRegularWidth
            sourceComponent: root.artworkBlock
        }
        Item {
            width: parent.width
            height: root.artworkPadding
        }
        Separator {
            width: parent.width
        }
    }
    InformationHeader {
        width: parent.width
        view: root.view
    }
    Repeater {
        model: root.view.mainRowCount

        InformationCell {
            required property int index

            width: parent.width
            row: root.view.rows.mainRow(index)
        }
    }
    Repeater {
        model: root.view.moreRowCount
        onCountChanged: root.layOut()

        InformationCell {
            required property int index

            width: parent.width
            row: root.view.rows.moreRow(index)
            onButtonAction: root.view.run(row)
        }
    }
    Item {
        width: parent.width
        height: root.spaceAtEnd
    }
}
