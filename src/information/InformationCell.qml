// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Information
import Trackwise.Ui

/// One row of the list: a small title and its value, side by side or, at the largest text sizes, stacked.
/// The value can be copied or, where the row does something, is a button.
CopyableRow {
    id: root

    required property informationRow row
    signal buttonAction

    readonly property real verticalPadding: 9
    readonly property real focusMargin: 10
    readonly property bool isStacked: Theme.isAccessibilitySize
    // Below a stacked title the value moves up by the title's padding.
    readonly property real minimumSpace: isStacked ? -verticalPadding : 10
    readonly property real titleHeight: title.implicitHeight + 2 * verticalPadding
    readonly property real valueHeight: root.row.hasButton ? button.height : label.height

    implicitHeight: divider.y + divider.height
    activeFocusOnTab: !root.row.hasButton
    onRowChanged: label.renew(root.row.value) // what is copied is what is shown

    Accessible.ignored: root.row.hasButton
    Accessible.role: Accessible.StaticText
    spokenText: root.row.spoken
    onCopyRequested: label.copy()
    Keys.forwardTo: [label]

    StyledText {
        id: title

        y: root.verticalPadding
        anchors.left: parent.left
        text: root.row.title
        style: Theme.caption
        color: Theme.secondaryLabel
        Accessible.ignored: true
    }
    CopyableLabelView {
        id: label

        anchors.right: parent.right
        y: root.isStacked ? root.titleHeight + root.minimumSpace : 0
        width: root.isStacked ? root.width : root.width - title.width - root.minimumSpace
        visible: !root.row.hasButton
        text: root.row.value
        textAlignment: root.isStacked ? Text.AlignLeft : Text.AlignRight
        focusItem: root
    }
    Loader {
        id: button

        anchors.left: parent.left
        anchors.leftMargin: root.isStacked ? 0 : root.width - width
        y: label.y
        active: root.row.hasButton
        sourceComponent: PlainButton {
            verticalPadding: root.verticalPadding
            text: root.row.value
            style: Theme.caption
            Accessible.name: root.row.spoken
            onClicked: root.buttonAction()
        }
    }
    Separator {
        id: divider

        y: root.isStacked ? label.y + root.valueHeight : Math.max(root.titleHeight, root.valueHeight)
        width: parent.width
    }
    FocusRing {
        visible: root.hasKeyboardFocus
        anchors.leftMargin: -root.focusMargin
        anchors.rightMargin: -root.focusMargin
    }
}
