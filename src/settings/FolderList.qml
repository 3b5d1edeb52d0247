// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Trackwise.Settings
import Trackwise.Ui

/// The music folders, with a button to take those away that may go.
Column {
    id: root

    required property SettingsList folders
    property bool canRemove: false

    signal removed(int row)

    readonly property real symbolSize: Math.round(1.3 * Theme.body.font.pixelSize)
    readonly property real symbolSpace: symbolSize + 10

    Repeater {
        model: root.folders

        delegate: Item {
            id: folder

            required property int index
            required property string title
            required property string note
            required property bool isOn

            width: root.width
            implicitHeight: row.implicitHeight

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                anchors.left: parent.left
                name: "folder"
                size: root.symbolSize
                color: Theme.secondaryLabel
            }
            SettingsRow {
                id: row

                anchors.left: parent.left
                anchors.leftMargin: root.symbolSpace
                anchors.right: parent.right
                title: "\u2066%1\u2069".arg(folder.title) // from left to right everywhere
                note: folder.note
                isStacked: false
                Accessible.role: Accessible.StaticText
                Accessible.name: folder.title

                PlainButton {
                    visible: root.canRemove && folder.isOn
                    symbolName: "xmark.circle.fill"
                    color: Theme.secondaryLabel
                    Accessible.name: qsTr("Remove %1").arg(folder.title)
                    onClicked: root.removed(folder.index)
                }
            }
        }
    }
}
