// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// The ways to look through the library, side by side; larger texts can be moved sideways.
Flickable {
    id: root

    required property MediaPicker picker
    readonly property real margin: 10

    /// Brings all of the chosen tab into view.
    function revealChosen() {
        const tab = row.children[root.picker.tab];
        const least = tab.x + tab.width + root.margin - root.width;
        root.contentX = Math.max(0, least, Math.min(root.contentX, tab.x - root.margin));
    }

    implicitHeight: row.implicitHeight
    contentWidth: row.width
    contentHeight: row.implicitHeight
    flickableDirection: Flickable.HorizontalFlick
    interactive: row.implicitWidth > root.width
    clip: interactive
    onWidthChanged: root.revealChosen()
    onContentWidthChanged: root.revealChosen()

    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Lists")

    Connections {
        target: root.picker

        function onTabChanged() {
            root.revealChosen();
        }
    }
    Row {
        id: row

        leftPadding: root.margin
        rightPadding: root.margin
        width: Math.max(implicitWidth, root.width)
        spacing: 4

        PickerTab {
            id: songsTab

            picker: root.picker
            tab: MediaPicker.Songs
            text: qsTr("Songs")
            KeyNavigation.right: artistsTab
        }
        PickerTab {
            id: artistsTab

            picker: root.picker
            tab: MediaPicker.Artists
            text: qsTr("Artists")
            KeyNavigation.right: albumsTab
        }
        PickerTab {
            id: albumsTab

            picker: root.picker
            tab: MediaPicker.Albums
            text: qsTr("Albums")
            KeyNavigation.right: recentTab
        }
        PickerTab {
            id: recentTab

            picker: root.picker
            tab: MediaPicker.RecentlyAdded
            text: qsTr("Recently Added")
        }
    }
}
