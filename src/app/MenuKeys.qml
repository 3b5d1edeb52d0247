// SPDX-License-Identifier: GPL-3.0-or-later
import QtQml
import QtQuick
import Trackwise.App
import Trackwise.Ui

/// The keys of a menu's commands, in a window.
Instantiator {
    id: root

    required property CommandMenu menu
    required property bool isActive

    model: root.menu

    delegate: Shortcut {
        required property int index
        required property bool isEnabled
        required property bool worksEverywhere
        required property var keys

        // The window's context would leave out what stands behind a sheet, an alert or a menu.
        context: worksEverywhere ? Qt.ApplicationShortcut : Qt.WindowShortcut
        sequences: keys
        enabled: isEnabled && root.isActive
        onActivated: root.menu.trigger(index)
        // The desktop's menu knows the same keys, and takes turns with us.
        onActivatedAmbiguously: root.menu.trigger(index)
    }
}
