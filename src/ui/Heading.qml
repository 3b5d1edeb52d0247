// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// A text over what it names, which screen readers go to.
StyledText {
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
