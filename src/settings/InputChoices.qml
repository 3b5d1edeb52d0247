// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Settings
import Trackwise.Ui

/// What there is to listen to, of which one is taken.
FocusScope {
    id: root

    required property string name
    required property SettingsList choices

    signal chosen(int row)

    readonly property real padding: 8
    readonly property real gap: 12
    readonly property real largestMark: 28 // leaves large words their room

    implicitHeight: column.height
    Accessible.role: Accessible.Grouping
    Accessible.name: root.name

    Column {
        id: column

        width: parent.width

        Repeater {
            model: root.choices

            delegate: T.RadioButton {
                id: choice

                required property int index
                required property string title
                required property string note
                required property bool isOn

                width: column.width
                height: Math.max(Theme.touchTarget, Math.round(words.implicitHeight + 2 * root.padding))
                text: title
                focusPolicy: Qt.StrongFocus
                hoverEnabled: true
                opacity: down ? 0.6 : 1
                checkable: true
                checked: choice.isOn
                onClicked: { // where it is on, too: what has ended begins anew
                    root.chosen(choice.index);
                    choice.checked = Qt.binding(() => choice.isOn); // again; it is the owner who decides
                }
                Keys.onReturnPressed: root.chosen(choice.index)
                Keys.onEnterPressed: root.chosen(choice.index)
                Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.TabFocusReason)
                Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
                Accessible.role: Accessible.RadioButton
                Accessible.name: root.name + ", " + choice.title
                Accessible.description: choice.note
                Accessible.checkable: true
                Accessible.checked: choice.checked
                Accessible.onPressAction: root.chosen(choice.index)

                background: Item {
                    Rectangle {
                        anchors.fill: parent
                        anchors.leftMargin: -root.padding
                        anchors.rightMargin: -root.padding
                        radius: 8
                        color: Theme.systemFill
                        opacity: choice.hovered ? 0.5 : 0
                    }
                    FocusRing {
                        visible: choice.visualFocus
                        anchors.leftMargin: -root.padding
                        anchors.rightMargin: -root.padding
                        anchors.topMargin: 0
                        anchors.bottomMargin: 0
                    }
                    Separator {
                        anchors.bottom: parent.bottom
                        width: parent.width
                    }
                }
                contentItem: Item {
                    Column {
                        id: words

                        anchors.left: parent.left
                        anchors.right: parent.right
                        anchors.rightMargin: mark.visible ? mark.width + root.gap : 0
                        anchors.verticalCenter: parent.verticalCenter

                        StyledText {
                            width: parent.width
                            text: choice.title
                            style: Theme.body.keepingWords(choice.title, width)
                            horizontalAlignment: Text.AlignLeft // or right, where one reads from there
                            wrapMode: Text.Wrap
                            Accessible.ignored: true
                        }
                        StyledText {
                            width: parent.width
                            visible: text !== ""
                            text: choice.note
                            style: Theme.footnote
                            color: Theme.secondaryLabel
                            horizontalAlignment: Text.AlignLeft
                            wrapMode: Text.Wrap
                            Accessible.ignored: true
                        }
                    }
                    Symbol {
                        id: mark

                        anchors.right: parent.right
                        anchors.verticalCenter: parent.verticalCenter
                        visible: choice.isOn
                        name: "checkmark"
                        size: Math.min(root.largestMark, Math.round(1.1 * Theme.body.font.pixelSize))
                    }
                }
            }
        }
    }
}
