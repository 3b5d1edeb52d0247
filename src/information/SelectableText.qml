// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Information
import Trackwise.Ui

/// The text of a copyable label that can also be copied in parts.
TextEdit {
    id: root

    required property CopyableLabel label
    property textStyle style: Theme.body

    activeFocusOnTab: true
    color: Theme.label
    font: root.style.font
    persistentSelection: true
    readOnly: true
    selectByKeyboard: true
    selectedTextColor: Theme.onAccent
    selectionColor: Theme.accent
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
    Component.onCompleted: root.label.spaceLines(root.textDocument, root.style.lineHeight)
    onStyleChanged: root.label.spaceLines(root.textDocument, root.style.lineHeight)
    onTextChanged: root.label.spaceLines(root.textDocument, root.style.lineHeight)
    onSelectedTextChanged: root.label.selection = root.selectedText

    Accessible.role: Accessible.EditableText
    Accessible.readOnly: true
    Accessible.multiLine: true
    Accessible.name: root.text
    Keys.forwardTo: [root.label]
}
