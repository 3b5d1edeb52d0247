// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Picker
import Trackwise.Ui

/// Where songs are looked for by typing. Keys that mean something to the list below act there, although the
/// focus is here.
FocusScope {
    id: root

    required property MediaPicker picker
    readonly property real airAround: 8
    readonly property real symbolSize: Math.round(0.94 * input.font.pixelSize)

    function focusInput() {
        input.forceActiveFocus(Qt.ShortcutFocusReason);
        input.selectAll();
    }

    Connections {
        target: root.picker

        function onSearchFocusWanted() {
            input.forceActiveFocus(Qt.OtherFocusReason);
        }
    }

    implicitHeight: Math.max(Theme.touchTarget, input.implicitHeight + 2 * root.airAround)

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: root.airAround / 2
        anchors.bottomMargin: root.airAround / 2
        radius: 10
        color: Theme.systemFill
    }
    Symbol {
        id: lens

        anchors.left: parent.left
        anchors.leftMargin: root.airAround
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifyingglass"
        size: root.symbolSize
        color: Theme.secondaryLabel
    }
    TextInput {
        id: input

        anchors.left: lens.right
        anchors.leftMargin: root.airAround
        anchors.right: clear.left
        anchors.verticalCenter: parent.verticalCenter
        focus: true
        activeFocusOnTab: true
        clip: true
        text: root.picker.searchText
        font: Theme.body.font
        color: Theme.label
        selectionColor: Theme.accent
        selectedTextColor: Theme.onAccent
        selectByMouse: true
        maximumLength: 256
        horizontalAlignment: TextInput.AlignLeft
        inputMethodHints: Qt.ImhNoPredictiveText
        onTextEdited: root.picker.searchText = text
        Keys.onPressed: event => { event.accepted = root.picker.handleKey(event.key, event.modifiers, input.text !== ""); }

        Accessible.role: Accessible.EditableText
        Accessible.name: placeholder.text
        Accessible.description: root.picker.resultsSummary
        Accessible.searchEdit: true

        StyledText {
            id: placeholder

            anchors.fill: parent
            visible: input.text === "" && input.preeditText === ""
            text: qsTr("Search Songs")
            style: Theme.body
            lineHeight: 1 // of letters that have shrunk
            lineHeightMode: Text.ProportionalHeight
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Math.round(font.pixelSize / 2)
            color: Theme.secondaryLabel
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
    }
    PlainButton {
        id: clear

        anchors.right: parent.right
        anchors.rightMargin: root.airAround
        anchors.verticalCenter: parent.verticalCenter
        visible: input.text !== ""
        focusPolicy: Qt.NoFocus
        display: PlainButton.IconOnly
        text: qsTr("Clear Search")
        symbolName: "xmark.circle.fill"
        symbolSize: root.symbolSize
        color: Theme.secondaryLabel
        onClicked: root.picker.searchText = ""
    }
}
