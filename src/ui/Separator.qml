// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Ui

/// A hairline, one device pixel thick.
Rectangle {
    implicitHeight: 1 / Screen.devicePixelRatio
    implicitWidth: implicitHeight
    color: Theme.separator
    Accessible.ignored: true
}
