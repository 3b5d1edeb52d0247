// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Trackwise.Picker
import Trackwise.Ui

/// One list of the picker. However long the library is, only the rows in view exist.
ListView {
    id: root

    required property MediaPicker picker
    required property LibraryListModel list
    property bool isLow: false
    /// What is in it, for screen readers.
    required property string name
    readonly property bool isCurrent: root.picker.currentList === root.list
    readonly property bool showsIndex: root.list.hasSections && root.contentHeight > 2 * root.height
    readonly property bool hasHeaders: root.list.hasSections && !root.isLow // rows need the room of a low window
    readonly property real headerHeight: root.hasHeaders ? Theme.footnote.lineHeight + 8 : 0
    property bool wasAtTop: false

    model: root.list
    clip: true
    enabled: root.isCurrent
    reuseItems: true
    currentIndex: -1
    keyNavigationEnabled: false
    activeFocusOnTab: root.count > 0
    boundsBehavior: Flickable.DragOverBounds
    T.ScrollBar.vertical: SlimScrollBar {
        visible: size < 1 && !root.showsIndex
        thickness: pressed || hovered ? 8 : 4 // so that it can be grasped
        padding: 3
        resting: 0
    }
    section.property: root.hasHeaders ? "section" : ""
    section.labelPositioning: ViewSection.InlineLabels | ViewSection.CurrentLabelAtStart

    Accessible.role: Accessible.List
    Accessible.name: root.name

    section.delegate: Item {
        id: header

        required property string section
        // The label that stays at the top is not told when it comes to stand for another section.
        readonly property string label: y <= root.contentY ? root.currentSection : section

        width: ListView.view.width
        height: root.headerHeight

        // Only where it stays while rows pass below it; elsewhere a ground could fill the sheet's round corners.
        Rectangle {
            anchors.fill: parent
            visible: header.y < root.contentY + header.height
            color: Theme.isDark ? Theme.secondarySystemBackground : Theme.systemBackground // as the sheet's
        }
        Heading {
            anchors.left: parent.left
            anchors.leftMargin: Theme.margin()
            anchors.verticalCenter: parent.verticalCenter
            text: header.label
            style: Theme.footnote.bold()
            color: Theme.secondaryLabel
        }
    }

    delegate: PickerRow {
        width: ListView.view.width
        isLow: root.isLow
        isHighlighted: index === root.list.highlightedRow
        isOfGroup: root.list.isOfGroups
        isOfArtist: root.list.isOfArtists
        indexWidth: root.showsIndex ? sectionIndex.width : 0
        onActivated: root.picker.activate(index)
    }

    Connections {
        target: root.list

        // A header may lie where a row is looked for, so there are two looks at either end.
        function onViewportWanted() {
            const top = root.contentY + root.headerHeight;
            const bottom = root.contentY + root.height - 1;
            root.list.setViewport(Math.max(root.indexAt(0, top), root.indexAt(0, top + root.headerHeight)), Math.max(root.indexAt(0, bottom), root.indexAt(0, bottom - root.headerHeight)));
        }
        function onHighlightDidMove(row: int) {
            root.positionViewAtIndex(row, ListView.Contain);
            root.contentY = Math.max(root.originY, Math.min(root.contentY, root.itemAtIndex(row).y - root.headerHeight));
        }
        function onHighlightedRowChanged() {
            root.isCurrent && root.list.highlightedRow < 0 && ScreenReader.moveToFocus(root);
        }
        function onWillUpdate() {
            root.wasAtTop = root.atYBeginning && root.list.highlightedRow < 0;
        }
        function onDidUpdate() {
            root.wasAtTop && root.positionViewAtBeginning();
        }
    }

    FocusRing {
        anchors.margins: 2
        visible: root.activeFocus && root.count > 0 && root.list.highlightedRow < 0
    }
    SectionIndex {
        id: sectionIndex

        parent: root
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.topMargin: root.headerHeight
        visible: root.showsIndex
        list: root.list
        onRowChosen: row => root.positionViewAtIndex(row, ListView.Beginning)
    }
    EmptyStateView {
        parent: root
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        visible: root.isCurrent && root.list.isLoaded && root.list.count === 0
        picker: root.picker
    }
}
