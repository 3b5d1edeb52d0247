// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// A few choices side by side, or one below the other where they do not fit, of which one is taken.
FocusScope {
    id: root

    required property string name
    required property list<string> titles
    required property int current
    property real availableWidth: Infinity

    signal chosen(int index)

    readonly property color takenColor: Theme.isDark ? "#636368" : "#ffffff"
    readonly property real inset: 2
    readonly property real textMargin: 12
    readonly property real choiceHeight: Math.max(32, Math.round(Theme.subheadline.lineHeight + 12))
    readonly property real choiceWidth: Math.ceil(measure.implicitWidth) + 2 * textMargin
    readonly property bool isRow: choiceWidth * titles.length + 2 * inset <= availableWidth

    implicitWidth: isRow ? choiceWidth * titles.length + 2 * inset : availableWidth
    implicitHeight: (isRow ? 1 : titles.length) * choiceHeight + 2 * inset
    Accessible.role: Accessible.Grouping
    Accessible.name: root.name

    // The longest title decides how wide each choice is.
    Column {
        id: measure

        opacity: 0

        Repeater {
            model: root.titles

            delegate: StyledText {
                required property string modelData

                text: modelData
                style: Theme.subheadline.bold()
                Accessible.ignored: true
            }
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: 9
        color: Theme.systemFill
    }
    Grid {
        anchors.fill: parent
        anchors.margins: root.inset
        columns: root.isRow ? root.titles.length : 1

        Repeater {
            model: root.titles

            delegate: T.RadioButton {
                id: choice

                required property int index
                required property string modelData
                readonly property bool isTaken: index === root.current

                width: root.isRow ? parent.width / root.titles.length : parent.width
                height: root.choiceHeight
                text: modelData
                focusPolicy: Qt.StrongFocus
                hoverEnabled: true
                opacity: down ? 0.6 : 1
                checkable: true
                checked: choice.isTaken
                onToggled: {
                    root.chosen(choice.index);
                    choice.checked = Qt.binding(() => choice.isTaken); // again; it is the owner who decides
                }
                Keys.onReturnPressed: root.chosen(choice.index)
                Keys.onEnterPressed: root.chosen(choice.index)
                Keys.onLeftPressed: nextItemInFocusChain(choice.mirrored).forceActiveFocus(Qt.TabFocusReason)
                Keys.onRightPressed: nextItemInFocusChain(!choice.mirrored).forceActiveFocus(Qt.TabFocusReason)
                Accessible.role: Accessible.RadioButton
                Accessible.name: root.name + ", " + choice.text
                Accessible.checkable: true
                Accessible.checked: choice.checked
                Accessible.onPressAction: root.chosen(choice.index)

                background: Rectangle {
                    radius: 7
                    color: choice.isTaken ? root.takenColor : Theme.secondarySystemBackground
                    opacity: Math.max(choice.isTaken ? 1 : 0, choice.hovered ? 0.5 : 0)
                }
                contentItem: StyledText {
                    text: choice.text
                    style: choice.isTaken ? Theme.subheadline.bold() : Theme.subheadline
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    Accessible.ignored: true
                }
                FocusRing {
                    visible: choice.visualFocus
                    anchors.margins: 0
                }
            }
        }
    }
}
