// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Screens
import Trackwise.Ui

/// The buttons of the about screen: in a row where that is wider than high, else one above the other.
Grid {
    id: root

    required property AboutScreen screen
    required property color ink
    required property bool isRow
    required property real room

    readonly property real gap: 8
    readonly property real paddings: 2 * rate.horizontalPadding
    readonly property real widest: Math.max(more.naturalWidth, rate.naturalWidth, privacy.naturalWidth)
    readonly property real all: more.naturalWidth + rate.naturalWidth + privacy.naturalWidth
    readonly property real shrinkInRow: Math.min(1, (room - 2 * gap - 3 * paddings) / all)
    readonly property real shrinkInColumn: Math.min(1, (room - paddings) / widest)
    /// Letters of less than half their size are not read: very large ones stand one above the other.
    readonly property bool fitsInRow: shrinkInRow >= 0.5
    readonly property real shrink: isRow && fitsInRow ? shrinkInRow : shrinkInColumn

    columns: isRow && fitsInRow ? 3 : 1
    columnSpacing: gap
    rowSpacing: 0 // their paddings keep them apart
    horizontalItemAlignment: Grid.AlignHCenter

    AboutButton {
        id: more

        text: qsTr("More Apps")
        ink: root.ink
        shrink: root.shrink
        onClicked: root.screen.showMoreApps()
    }
    AboutButton {
        id: rate

        text: qsTr("Rate on App Store")
        ink: root.ink
        shrink: root.shrink
        onClicked: root.screen.rate()
    }
    AboutButton {
        id: privacy

        text: qsTr("Privacy Policy")
        ink: root.ink
        shrink: root.shrink
        onClicked: root.screen.showPrivacyPolicy()
    }
}
