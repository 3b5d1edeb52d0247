// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// A paragraph of the help screen, as wide as that.
StyledText {
    width: parent ? parent.width : 0
    wrapMode: Text.Wrap
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
