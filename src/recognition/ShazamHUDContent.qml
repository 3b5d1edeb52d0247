// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Recognition
import Trackwise.Ui

/// What the HUD says: a symbol, a line and a fainter one below it, and a way to cancel.
Item {
    id: root

    required property ShazamHUDContentConfig config
    required property real minimumScale
    /// How loud it is, from 0 to 1.
    required property real level
    signal cancelRequested

    readonly property real symbolWidth: 44
    readonly property real lineSpacing: 1
    /// Of a line; the letters of large text sizes become smaller until they fit.
    readonly property real lineRoom: (height - lineSpacing) / 2
    readonly property real roomAtButton: 4
    readonly property real roomAtEnd: 15

    component Line: Item {
        id: line

        property alias text: letters.text
        property alias style: letters.style
        property alias color: letters.color

        width: texts.width
        height: Math.min(letters.style.lineHeight, root.lineRoom)

        // Made smaller as a whole: sizes of fonts are whole pixels, too coarse for small letters.
        StyledText {
            id: letters

            width: parent.width / scale
            scale: Math.max(root.minimumScale, Math.min(1, parent.width / Math.ceil(implicitWidth), root.lineRoom / style.lineHeight))
            transformOrigin: LayoutMirroring.enabled ? Item.Right : Item.Left
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            horizontalAlignment: Text.AlignLeft // the leading edge, whatever the text
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    LevelSymbol {
        anchors.left: parent.left
        anchors.leftMargin: (root.symbolWidth - width) / 2
        anchors.verticalCenter: parent.verticalCenter
        outline: root.config.outlineName
        filled: root.config.symbolName
        level: Theme.reducesMotion ? Math.ceil(root.level) : root.level
        size: root.config.symbolFontSize
        color: Theme[root.config.symbolColor || "accent"]
    }
    Column {
        id: texts

        anchors.left: parent.left
        anchors.leftMargin: root.symbolWidth
        anchors.right: parent.right
        anchors.rightMargin: root.config.canCancel ? root.roomAtButton + button.width : root.roomAtEnd
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.lineSpacing

        Line {
            text: root.config.topText
            style: Theme.footnote.semibold()
        }
        Line {
            text: root.config.bottomText
            style: Theme.footnote.medium()
            color: Theme.secondaryLabel
        }
    }
    CancelButton {
        id: button

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: root.config.canCancel
        onClicked: root.cancelRequested()
    }
}
