// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// Over a section of the help screen, as wide as that.
Heading {
    width: parent ? parent.width : 0
    style: Theme.title.bold()
    fontSizeMode: Text.HorizontalFit
    minimumPixelSize: Math.round(font.pixelSize / 2)
    wrapMode: Text.Wrap
}
