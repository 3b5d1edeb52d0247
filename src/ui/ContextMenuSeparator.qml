// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Ui

/// A hairline between the sections of a menu.
T.MenuSeparator {
    width: ListView.view ? ListView.view.width : implicitWidth
    implicitHeight: 9
    Accessible.ignored: true

    contentItem: Item {
        Separator {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: 6
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
