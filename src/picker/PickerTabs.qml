// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// The ways to look through the library, side by side, and in further lines where that is too wide.
Flow {
    id: root

    required property MediaPicker picker
    readonly property real margin: 18 // as the search field
    readonly property list<string> names: [songsTab.text, artistsTab.text, albumsTab.text, recentTab.text]

    leftPadding: root.margin
    rightPadding: root.margin
    spacing: 2

    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Lists")

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
