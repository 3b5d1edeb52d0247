// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Information
import Trackwise.Ui

/// A text that wraps and can be copied: by holding a finger on it, by a right click, or by the copy key while
/// `focusItem` has the focus. It is as high as its text and a little air.
CopyableLabel {
    id: root

    property textStyle style: Theme.caption
    property int textAlignment: Text.AlignLeft
    /// Whether the text is an element of its own for screen readers, and can be selected in parts.
    property bool isAccessible: false
    /// What that element is called; its text is a content of its own.
    property string name: ""
    /// The page that it is on, which scrolls when keys are pressed in it.
    property Item page: null
    /// What takes the focus when the text is touched: the row that the label stands in, say.
    property Item focusItem: root
    readonly property real verticalPadding: 9

    implicitHeight: Math.ceil(body.implicitHeight) + 2 * verticalPadding
    onContextMenuRequested: menus.openContextMenu(Qt.point(width / 2, height / 2)) // amid the text
    Accessible.ignored: true

    Loader {
        id: body

        y: root.verticalPadding
        width: root.width
        sourceComponent: root.isAccessible ? selectableText : plainText
    }
    Component {
        id: plainText

        StyledText {
            text: root.text
            style: root.style
            horizontalAlignment: root.textAlignment
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }
    Component {
        id: selectableText

        SelectableText {
            name: root.name
            page: root.page
            style: root.style
            horizontalAlignment: root.textAlignment
            label: root
        }
    }
    CopyMenus {
        id: menus

        anchors.fill: parent
        label: root
        focusItem: root.focusItem
    }
}
