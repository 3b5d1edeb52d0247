// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Ui

/// One of our symbols in a colour. Decorative: the control around it has the accessible name.
Image {
    id: root

    required property string name
    property real size: 24
    property color color: Theme.accent
    /// Set for symbols that point somewhere, such as "chevron.backward".
    property bool mirrors: false

    width: root.size
    height: root.size
    mirror: root.mirrors && LayoutMirroring.enabled
    sourceSize.width: Math.ceil(root.size * Screen.devicePixelRatio)
    sourceSize.height: Math.ceil(root.size * Screen.devicePixelRatio)
    source: Theme.symbolSource(root.name, root.color)
    Accessible.ignored: true
}
