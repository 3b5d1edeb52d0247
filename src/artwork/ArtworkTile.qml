// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Window
import Trackwise.Artwork
import Trackwise.Ui

/// The cover as a rounded square with a soft shadow, or an empty square with a note in it. A cover can be
/// copied and dragged out.
FocusableItem {
    id: root

    required property ArtworkViewModel view
    required property real side
    readonly property real cornerRadius: 12
    readonly property real placeholderShare: 0.42
    readonly property color ground: Theme.isDark ? Theme.tertiarySystemBackground : Theme.secondarySystemBackground

    function startDrag(hotSpot: point) {
        root.view.startDrag(root.side, root.cornerRadius, Screen.devicePixelRatio, root.ground, hotSpot);
    }

    width: root.side
    height: root.side
    activeFocusOnTab: picture.hasPicture

    Accessible.role: Accessible.Graphic
    Accessible.name: picture.hasPicture ? qsTr("Album artwork") : qsTr("Album artwork, empty")
    Accessible.focusable: picture.hasPicture

    TileGround {
        anchors.fill: parent
        color: root.ground
        radius: root.cornerRadius
        shadowOpacity: 0.12
        shadowRadius: 10
        shadowOffset: 10
    }
    Symbol {
        anchors.centerIn: parent
        visible: picture.isEmpty && root.side > 0
        name: root.view.placeholderSymbol
        size: root.side * root.placeholderShare
        color: Theme.systemFill
    }
    ArtworkPicture {
        id: picture

        anchors.fill: parent
        source: root.view.artworkAddress
        radius: root.cornerRadius
        opacity: picture.hasPicture ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.alertDuration
                easing.type: Easing.OutCubic
            }
        }
    }
    FocusRing {
        radius: root.cornerRadius + air + border.width
        visible: root.hasKeyboardFocus
    }

    CopyMenu {
        id: menu

        onChosen: root.view.copyArtwork()
    }
    Shortcut {
        sequences: [StandardKey.Copy]
        enabled: root.activeFocus && picture.hasPicture
        onActivated: root.view.copyArtwork()
    }
    Shortcut {
        sequences: ["Menu", "Shift+F10"]
        enabled: root.activeFocus && picture.hasPicture
        onActivated: menu.openAt(Qt.point(root.width / 2, root.height / 2))
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        enabled: picture.hasPicture
        onTapped: eventPoint => menu.openAt(eventPoint.position)
    }
    // A finger that goes on from there takes the cover with it, and not the menu.
    HeldTouch {
        anchors.fill: parent
        enabled: picture.hasPicture
        onHeld: place => menu.openAt(place)
        onPulled: place => {
            menu.active = false;
            root.startDrag(place);
        }
        onReleased: root.view.cancelDrag()
    }
    DragHandler {
        id: pull

        target: null
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad | PointerDevice.Stylus
        enabled: picture.hasPicture && !root.view.isDragging
        onActiveChanged: pull.active ? root.startDrag(pull.centroid.pressPosition) : root.view.cancelDrag()
    }
}
