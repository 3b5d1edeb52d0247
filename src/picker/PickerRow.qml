// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// A song, an artist or an album in a list of the picker.
Item {
    id: root

    required property int index
    required property string title
    required property string subtitle
    required property string artwork
    required property bool isExplicit
    required property bool isAvailable
    required property bool startsSection
    required property string spokenText

    property bool isLow: false ///< rows are closer in low windows
    property bool isHighlighted: false
    property bool isOfGroup: false
    property bool isOfArtist: false
    property real indexWidth: 0 ///< what the letters beside the list cover

    signal activated

    readonly property real gap: 12
    readonly property real airAround: 8
    readonly property real artworkSize: 44
    readonly property real dimmed: 0.45
    readonly property real endMargin: Math.max(airAround, indexWidth)

    /// The row as it is told to screen readers while the focus is elsewhere; its texts may come a little later.
    readonly property string told: root.isHighlighted ? root.spokenText : ""

    onToldChanged: root.told !== "" && ScreenReader.moveTo(root)
    implicitHeight: Math.max(root.artworkSize, texts.height) + (root.isLow ? 1 : 2) * root.airAround

    Accessible.role: Accessible.ListItem
    Accessible.name: root.spokenText
    Accessible.selectable: true
    Accessible.selected: root.isHighlighted
    Accessible.onPressAction: root.activated()

    // Hovered over, a row is filled; the one that the keyboard is at is framed.
    Rectangle {
        id: ground

        anchors.fill: parent
        anchors.leftMargin: root.airAround
        anchors.rightMargin: root.endMargin
        radius: root.airAround
        color: pointer.containsMouse ? Theme.systemFill : "transparent"
        opacity: pointer.pressed ? 1 : 0.5
    }
    FocusRing {
        anchors.fill: ground
        anchors.margins: 0
        visible: root.isHighlighted
    }
    Separator {
        anchors.top: parent.top
        anchors.left: texts.left
        anchors.right: parent.right
        anchors.rightMargin: root.endMargin
        visible: root.index > 0 && !root.isHighlighted && (root.isLow || !root.startsSection)
    }
    RowArtwork {
        id: artworkTile

        anchors.left: parent.left
        anchors.leftMargin: Theme.margin()
        anchors.verticalCenter: parent.verticalCenter
        width: root.artworkSize
        height: root.artworkSize
        source: root.artwork
        isRound: root.isOfArtist
        opacity: root.isAvailable ? 1 : root.dimmed
    }
    Item {
        id: texts

        anchors.left: artworkTile.right
        anchors.leftMargin: root.gap
        anchors.right: parent.right
        anchors.rightMargin: chevron.anchors.rightMargin + (root.isOfGroup ? chevron.width : 0) + (root.isOfGroup || root.indexWidth > 0 ? root.gap : 0)
        anchors.verticalCenter: parent.verticalCenter
        // One height for all rows of a list, so that places in a long list can be computed.
        height: Theme.callout.lineHeight * titleText.maximumLineCount + Theme.footnote.lineHeight
        opacity: artworkTile.opacity

        StyledText {
            id: titleText

            anchors.left: parent.left
            width: Math.min(implicitWidth, parent.width - (root.isExplicit ? mark.width + root.airAround : 0))
            text: root.title
            style: Theme.callout
            elide: Text.ElideRight
            wrapMode: Text.Wrap
            maximumLineCount: Theme.isAccessibilitySize ? 2 : 1
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Symbol {
            id: mark

            anchors.left: titleText.right
            anchors.leftMargin: root.airAround
            anchors.verticalCenter: titleText.verticalCenter
            visible: root.isExplicit
            name: "e.square.fill"
            size: Theme.footnote.lineHeight
            color: Theme.secondaryLabel
        }
        StyledText {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: titleText.bottom
            text: root.subtitle
            style: Theme.footnote
            color: Theme.secondaryLabel
            elide: Text.ElideRight
            maximumLineCount: 1
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
    }
    Symbol {
        id: chevron

        anchors.right: parent.right
        anchors.rightMargin: Math.max(Theme.margin(), root.indexWidth)
        anchors.verticalCenter: parent.verticalCenter
        visible: root.isOfGroup
        name: "chevron.forward"
        size: Math.round(0.75 * titleText.font.pixelSize)
        color: Theme.secondaryLabel
        mirrors: true
    }
    MouseArea {
        id: pointer

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.activated()
    }
}
