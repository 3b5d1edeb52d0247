// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Trackwise.Ui

/// A page that scrolls, with the margins that lists and texts have: by finger, wheel, arrow and page keys.
FocusScope {
    id: root

    default property alias content: column.data
    /// Wide windows have wider margins.
    property bool isRegularWidth: Window.width >= Theme.regularWidth
    property real verticalPadding: 0
    property real bottomPadding: verticalPadding
    /// Around what the keyboard focus reaches.
    property real air: lineStep
    /// Of the content, in points; in wider pages it stands in the middle.
    property real widestContent: Infinity
    readonly property real horizontalPadding: Theme.margin(isRegularWidth)
    readonly property real contentY: flickable.contentY
    readonly property bool isScrolled: flickable.contentY > 0

    readonly property real lineStep: 3 * Theme.caption.lineHeight
    readonly property real wheelNotch: 120 // eighths of a degree
    readonly property real lowest: Math.max(0, flickable.contentHeight - height)
    readonly property real goal: scrolling.running ? scrolling.to : flickable.contentY

    /// The end was asked for, and stays in view while the page grows.
    property bool showsEnd: false

    /// Puts in its place what has just been made. Until the next frame it would lie at the top, over everything,
    /// where clicks that come sooner meet it.
    function layOut() {
        column.forceLayout();
    }
    /// Shows the top, and takes the focus from whatever on the page has it.
    function startOver() {
        scrolling.stop();
        flickable.contentY = 0;
        flickable.focus = true;
    }
    function scrollTo(y: real) {
        root.showsEnd = y === Infinity;
        scrolling.to = Math.max(0, Math.min(y, root.lowest));
        scrolling.restart();
    }
    function scrollForKey(key: int): bool {
        return keyboard.scrollForKey(key, root.goal);
    }

    /// For keys that come to something beside the page, too.
    function scrollForEvent(event: KeyEvent) {
        event.accepted = (event.modifiers & ~Qt.KeypadModifier) === Qt.NoModifier && root.scrollForKey(event.key);
    }

    onLowestChanged: root.showsEnd && root.scrollTo(Infinity)
    Keys.onPressed: event => root.scrollForEvent(event)

    Flickable {
        id: flickable

        anchors.fill: parent
        clip: true
        contentHeight: column.height
        focus: true
        pixelAligned: true
        onMovementStarted: {
            scrolling.stop();
            root.showsEnd = false;
        }

        T.ScrollBar.vertical: SlimScrollBar {}

        Column {
            id: column

            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(root.width - 2 * root.horizontalPadding, root.widestContent)
            topPadding: root.verticalPadding
            bottomPadding: root.bottomPadding
        }
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse
            onWheel: event => root.scrollTo(root.goal - event.angleDelta.y / root.wheelNotch * root.lineStep)
        }
    }
    KeyboardScrolling {
        id: keyboard

        page: flickable
        air: root.air
        lineStep: root.lineStep
        onScrollWanted: contentY => root.scrollTo(contentY)
    }
    NumberAnimation {
        id: scrolling

        target: flickable
        property: "contentY"
        duration: Theme.reducesMotion ? 0 : 160
        easing.type: Easing.OutCubic
    }
}
