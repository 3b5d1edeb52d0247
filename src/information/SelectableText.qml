// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Information
import Trackwise.Ui

/// The text of a copyable label that can also be copied in parts.
TextEdit {
    id: root

    required property CopyableLabel label
    required property string name
    /// What scrolls when keys are pressed here.
    required property Item page
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
    onSelectedTextChanged: root.label.selection = root.selectedText

    Accessible.role: Accessible.EditableText
    Accessible.readOnly: true
    Accessible.editable: false
    Accessible.multiLine: true
    Accessible.name: root.name
    Keys.forwardTo: [root.label, root.page] // else they would move the cursor, which is not seen

    TextPieces {
        document: root.textDocument
        lineHeight: root.style.lineHeight
        text: root.label.text
        onDidBegin: root.cursorPosition = 0
    }
}
