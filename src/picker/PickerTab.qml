// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Picker
import Trackwise.Ui

/// One of the picker's tabs. The arrow keys go from one to the next, and the Tab key to the chosen one.
T.TabButton {
    id: root

    required property MediaPicker picker
    required property int tab
    readonly property int largestText: 24 // the rows below need the room more

    checked: root.picker.tab === root.tab
    focusPolicy: root.checked ? Qt.StrongFocus : Qt.ClickFocus
    hoverEnabled: true
    horizontalPadding: 10
    implicitWidth: Math.max(Theme.touchTarget, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(Theme.touchTarget, implicitContentHeight + topPadding + bottomPadding)
    onClicked: root.picker.tab = root.tab
    onActiveFocusChanged: root.picker.tab = root.activeFocus ? root.tab : root.picker.tab

    Accessible.name: root.text
    Accessible.checkable: true
    Accessible.checked: root.checked
    Accessible.selectable: true
    Accessible.selected: root.checked
    Accessible.onPressAction: root.clicked()

    background: Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        height: label.style.lineHeight + 12
        radius: height / 2
        color: Theme.systemFill
        opacity: Math.max(root.checked ? 1 : 0, root.hovered ? 0.5 : 0)
    }
    contentItem: StyledText {
        id: label

        text: root.text
        style: Theme.footnote.bold().atMost(root.largestText)
        color: root.checked ? Theme.label : Theme.secondaryLabel
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    FocusRing {
        anchors.fill: root.background
        radius: height / 2
        visible: root.visualFocus
    }
}
