// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Information
import Trackwise.Screens

Item {
    id: root

    required property SongInformation view
    required property string lyrics
    required property bool showsLyrics

    function scrollTo(y: real) {
        information.scrollTo(y);
    }

    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    InformationView {
        id: information

        anchors.fill: parent
        focus: true
        visible: !root.showsLyrics
        view: root.view
    }
    LyricsView {
        anchors.fill: parent
        visible: root.showsLyrics
        lyrics: root.lyrics
    }
}
