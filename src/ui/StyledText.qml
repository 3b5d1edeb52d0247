// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// Text in one of the theme's styles. What comes from outside is never taken for markup.
Text {
    id: root

    property textStyle style: Theme.body

    color: Theme.label
    font: root.style.font
    lineHeight: root.style.lineHeight
    lineHeightMode: Text.FixedHeight
    textFormat: Text.PlainText
}
