// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Artwork
import Trackwise.Ui

/// Title and artist, one thing to a screen reader. The mark of an explicit song follows the last word of its
/// title; it is drawn, since few fonts have it, in a space kept free by characters that do not break.
Column {
    id: root

    required property ArtworkViewModel view
    readonly property string space: "\u00a0"
    readonly property string keptFree: "\u2007\u2007" // two digits wide
    readonly property int mostLines: 6
    readonly property bool isCut: title.truncated || artist.truncated
    property real lastLineTop: 0
    property real lastLineWidth: 0

    spacing: 2

    Accessible.role: Accessible.StaticText
    Accessible.name: root.view.spokenText

    StyledText {
        id: title

        readonly property bool isMirrored: LayoutMirroring.enabled
        readonly property bool endsAtLeft: text.length > 0 && root.view.isTitleRightToLeft
        // The end of a title that is cut off does not keep the mark's place: it is beside the text.
        readonly property real markRoom: whole.lineCount > root.mostLines ? mark.width + free.advanceWidth / 2 : 0
        readonly property real lineLeft: isMirrored ? width - root.lastLineWidth : 0

        width: parent.width
        leftPadding: endsAtLeft ? markRoom : 0
        rightPadding: endsAtLeft ? 0 : markRoom
        style: Theme.headline
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        maximumLineCount: root.mostLines
        text: root.view.isExplicit ? root.view.title + root.space + root.keptFree : root.view.title
        Accessible.ignored: true
        onLineLaidOut: line => {
            root.lastLineTop = line.y;
            root.lastLineWidth = line.implicitWidth;
        }

        StyledText {
            id: whole

            visible: false
            width: parent.width
            style: title.style
            wrapMode: Text.Wrap
            text: root.view.isExplicit ? title.text : ""
        }
        Symbol {
            id: mark

            readonly property real besideText: title.endsAtLeft ? 0 : title.width - width
            readonly property real roomAtRight: title.isMirrored ? width : free.advanceWidth
            readonly property real afterLastWord: title.endsAtLeft ? free.advanceWidth - width : root.lastLineWidth - roomAtRight

            visible: root.view.isExplicit
            size: metrics.font.pixelSize
            x: title.markRoom > 0 ? besideText : title.lineLeft + afterLastWord
            y: root.lastLineTop + metrics.ascent - (metrics.tightBoundingRect("E").height + height) / 2
            name: "e.square.fill"
            color: Theme.secondaryLabel
        }
        FontMetrics {
            id: metrics

            font: title.font
        }
        TextMetrics {
            id: free

            font: title.font
            text: root.keptFree
        }
    }
    StyledText {
        id: artist

        width: parent.width
        visible: root.view.hasArtist
        style: Theme.callout
        color: Theme.secondaryLabel
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        maximumLineCount: root.mostLines
        text: root.view.artist
        Accessible.ignored: true
    }
    HoverHandler {
        id: hover
    }
    WholeText {
        visible: hover.hovered && root.isCut
        text: root.view.spokenText
    }
}
