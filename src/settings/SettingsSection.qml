// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// Rows of the settings under a heading.
Column {
    id: root

    required property string title

    readonly property real spaceAbove: 26
    readonly property real spaceBelow: 4

    Heading {
        width: parent.width
        topPadding: root.spaceAbove
        bottomPadding: root.spaceBelow
        text: root.title
        style: Theme.title3.bold().keepingWords(root.title, width)
        wrapMode: Text.Wrap
    }
}
