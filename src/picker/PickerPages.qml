// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// The lists under the search field: those of the tabs, over them the songs of an artist or album, and over
/// all the results of a search.
Item {
    id: root

    required property MediaPicker picker
    property bool isLow: false
    property real opened: root.picker.isShowingGroup ? 1 : 0
    readonly property real direction: LayoutMirroring.enabled ? -1 : 1
    readonly property real parallax: 1 / 3 // of the width, that the page below moves away

    clip: true

    Behavior on opened {
        NumberAnimation {
            duration: Theme.pushDuration
            easing.type: Easing.OutCubic
        }
    }

    Item {
        x: Theme.reducesMotion ? 0 : -root.opened * root.width * root.parallax * root.direction
        width: root.width
        height: root.height
        opacity: 1 - root.opened
        visible: root.opened < 1 && !root.picker.isShowingResults

        PickerTabs {
            id: tabs

            width: parent.width
            picker: root.picker
        }
        Repeater {
            model: [root.picker.songs, root.picker.artists, root.picker.albums, root.picker.recentlyAdded]

            Loader {
                id: loader

                required property LibraryListModel modelData
                required property int index
                readonly property bool isChosen: root.picker.tab === index

                anchors.top: tabs.bottom
                anchors.bottom: parent.bottom
                width: parent.width
                visible: isChosen
                active: false
                onIsChosenChanged: active = active || isChosen
                Component.onCompleted: active = isChosen

                sourceComponent: PickerList {
                    isLow: root.isLow
                    picker: root.picker
                    list: loader.modelData
                    name: tabs.names[loader.index]
                }
            }
        }
    }
    Item {
        x: Theme.reducesMotion ? 0 : (1 - root.opened) * root.width * root.direction
        width: root.width
        height: root.height
        visible: root.opened > 0 && !root.picker.isShowingResults
        opacity: Theme.reducesMotion ? root.opened : 1
        enabled: root.opened === 1 // the second click of two was for the row that led here

        PickerList {
            isLow: root.isLow
            anchors.fill: parent
            picker: root.picker
            list: root.picker.groupSongs
            name: root.picker.groupTitle
        }
    }
    PickerList {
        isLow: root.isLow
        anchors.fill: parent
        visible: root.picker.isShowingResults
        picker: root.picker
        list: root.picker.results
        name: qsTr("Search Results")
    }
}
