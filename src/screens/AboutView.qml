// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Trackwise.Screens
import Trackwise.Ui

/// The program, its version and who makes it, over a ground that drifts.
FocusScope {
    id: root

    required property AboutScreen screen
    /// The sheet's, which fills small windows.
    readonly property real cornerRadius: width < root.Window.width ? Theme.sheetRadius : 0
    readonly property color ink: "#111114" // readable on both colours of the ground, as no light ink is
    readonly property real narrow: 500
    readonly property real sidePadding: width <= narrow ? 25 : 50
    readonly property bool isRow: height < width
    readonly property real bottomPadding: isRow ? 20 : 16
    readonly property real iconTop: 50
    readonly property real iconBottom: 10
    readonly property real lineGap: 4
    readonly property real developerTop: 15
    readonly property real closeSize: 60

    focus: true
    Keys.onPressed: event => event.accepted = keyboard.scrollForKey(event.key, page.contentY)

    AboutGround {
        anchors.fill: parent
        radius: root.cornerRadius
        drifts: root.visible && root.screen.allowsDrift && !Theme.reducesMotion
    }
    Flickable {
        id: page

        anchors.fill: parent
        clip: contentHeight > height
        contentHeight: Math.max(height, texts.height + buttons.height)
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: SlimScrollBar {}

        BaseButton {
            id: close

            anchors.right: parent.right
            y: page.contentY // stays in its corner
            z: 1
            width: root.closeSize
            height: root.closeSize
            focus: true
            Accessible.name: qsTr("Close")
            ring.border.color: root.ink
            ring.anchors.margins: 6 // within the corner
            onClicked: root.screen.dismiss()

            background: Item {}
            contentItem: Item {
                Symbol {
                    anchors.centerIn: parent
                    name: "xmark.circle"
                    size: 30
                    color: root.ink
                    scale: close.hovered ? 1.1 : 1 // lifts
                }
            }
        }
        Column {
            id: texts

            x: root.sidePadding
            width: page.width - 2 * root.sidePadding
            topPadding: root.iconTop
            spacing: root.lineGap

            AboutIcon {
                anchors.horizontalCenter: parent.horizontalCenter
            }
            Item {
                width: parent.width
                height: root.iconBottom - 2 * root.lineGap
            }
            AboutText {
                ink: root.ink
                text: "Trackwise"
                style: Theme.title.heavy()
                Accessible.role: Accessible.Heading
            }
            AboutText {
                ink: root.ink
                text: root.screen.versionLine
            }
            AboutText {
                topPadding: root.developerTop
                ink: root.ink
                text: root.screen.developerName
            }
        }
        AboutButtons {
            id: buttons

            anchors.horizontalCenter: texts.horizontalCenter
            y: page.contentHeight - height
            bottomPadding: root.bottomPadding
            screen: root.screen
            ink: root.ink
            isRow: root.isRow
            room: texts.width
        }
    }
    KeyboardScrolling {
        id: keyboard

        page: page
        air: root.bottomPadding
        lineStep: 3 * Theme.caption.lineHeight
        onScrollWanted: contentY => page.contentY = Math.max(0, Math.min(contentY, page.contentHeight - page.height))
    }
}
