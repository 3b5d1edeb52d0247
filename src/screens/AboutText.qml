// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// A line of the about screen. Its letters shrink, to half their size at most, where it is too long.
StyledText {
    required property color ink

    width: parent ? parent.width : 0
    style: Theme.callout
    color: ink
    fontSizeMode: Text.HorizontalFit
    minimumPixelSize: Math.round(style.font.pixelSize / 2)
    elide: Text.ElideRight
    horizontalAlignment: Text.AlignHCenter
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
