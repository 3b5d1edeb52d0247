// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Ui

/// Makes and shows the view of one screen.
Loader {
    id: root

    required property HostedView view
    readonly property var screen: item
    /// Screens that scroll say so.
    readonly property bool isScrolled: screen?.isScrolled === true

    onViewChanged: root.view ? root.setSource(root.view.source, root.view.properties) : root.setSource("")
    Component.onCompleted: root.viewChanged()
}
