// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// A menu that opens where the user asked for it, or below a button. Its items are ContextMenuItem.
T.Menu {
    id: root

    /// Shown above the items; plain text.
    property string heading: ""
    readonly property real narrowest: 200
    readonly property real widest: T.Overlay.overlay ? T.Overlay.overlay.width - 2 * margins : Infinity

    implicitWidth: Math.min(widest, Math.max(narrowest, contentItem.implicitWidth) + leftPadding + rightPadding)
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    padding: 6
    topPadding: root.heading !== "" ? headingText.height + 6 : 6
    margins: 8
    title: root.heading !== "" ? root.heading : qsTr("Menu") // for screen readers
    modal: true
    dim: false
    overlap: 1

    onAboutToShow: root.contentItem.parent.Accessible.name = root.title

    contentItem: ListView {
        implicitHeight: contentHeight
        implicitWidth: Math.max(0, ...Array.from({ length: root.count }, (_, i) => root.itemAt(i).implicitWidth))
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: contentHeight > height
        clip: interactive
    }

    background: FloatingGround {
        StyledText {
            id: headingText

            visible: root.heading !== ""
            x: 18
            width: parent.width - 2 * x
            height: implicitHeight + 10
            verticalAlignment: Text.AlignVCenter
            text: root.heading
            style: Theme.caption
            color: Theme.secondaryLabel
            wrapMode: Text.Wrap
        }
    }

    enter: Fade {
        from: 0
        to: 1
    }
    exit: Fade {
        to: 0
    }
}
