// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// Over a section of the help screen, as wide as that. Its letters shrink, to half their size at most, until the
/// longest word fits.
Heading {
    id: root

    readonly property textStyle natural: Theme.title.bold()
    readonly property real share: Math.max(0.5, width / Math.max(1, width, words.implicitWidth))

    width: parent ? parent.width : 0
    style: natural.atMost(natural.font.pixelSize * share)
    wrapMode: Text.Wrap

    StyledText {
        id: words

        visible: false
        style: root.natural
        text: root.text.replace(/ /g, "\n")
        Accessible.ignored: true
    }
}
