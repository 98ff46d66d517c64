pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** A table: the search field and the header above the rows, and as many rows as the screen shows.
 * The delegate is a TableRow of this table. */
FocusScope {
    id: root

    required property ToolkitTableView table

    property alias delegate: list.delegate
    property alias list: list

    /** Takes what a press does where the list stands beside what it led to; else null. */
    property Gate gate: null

    function act(action: var): void {
        if (gate !== null)
            gate.asked(action);
        else
            action();
    }

    function choose(row: int): void {
        act(() => table.selectRow(row));
    }

    /** The row that stands aside from its actions; null when none does. */
    property Item openRow: null

    /** The row under the mouse; null when none is. */
    property T.ItemDelegate hoveredRow: null

    /** The row whose menu is open; -1 when none is. */
    readonly property int menuRow: menu.visible ? menu.row : -1

    function goTo(row: int): void {
        list.currentIndex = Math.min(Math.max(0, row), list.count - 1);
        list.positionViewAtIndex(list.currentIndex, ListView.Contain);
    }

    function enterRows(): void {
        list.forceActiveFocus();
        if (list.count > 0)
            goTo(0);
    }

    /** Whether a text in an item is cut off. */
    function isCut(item: Item): bool {
        return ((item as Text)?.truncated ?? false) || Array.from(item.children).some(isCut);
    }

    function shut(row: Item): void {
        if (openRow === row)
            openRow = null;
    }

    function openMenu(row: int, place: point): void {
        menu.titles = table.swipeActionTitles(row);
        menu.row = row;
        if (menu.titles.length > 0)
            menu.popup(root, place.x, place.y);
        menu.currentIndex = 0;
    }

    function performAction(row: int, action: int): void {
        if (gate !== null) {
            gate.asked(() => performAction(row, action));
            return;
        }
        if (action >= table.swipeActionTitles(row).length)
            return;
        openRow = null;
        list.forceActiveFocus(); // where Undo is not that of a text
        list.fading = true;
        table.performSwipeAction(row, action);
        fadeEnd.restart();
    }

    Keys.onEscapePressed: event => {
        event.accepted = openRow !== null;
        openRow = null;
    }

    Connections {
        target: root.table

        function onReloaded() {
            root.openRow = null;
        }
    }

    Connections {
        target: root.table.searchController

        function onResultsUpdated() {
            list.currentIndex = -1;
            list.positionViewAtBeginning();
        }
    }

    Rectangle {
        anchors.fill: parent
        color: root.gate !== null ? Theme.side : Theme.paper
    }

    ActionMenu {
        id: menu

        onChosen: (row, action) => root.performAction(row, action)
    }

    Hint {
        parent: root.hoveredRow
        text: shown ? root.hoveredRow.Accessible.name : ""
        shown: root.hoveredRow !== null && !root.hoveredRow.down && root.menuRow < 0
               && root.isCut(root.hoveredRow.contentItem)
    }

    Column {
        id: head

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width - 2 * Theme.margin, Theme.readableWidth)
        topPadding: Theme.gap
        bottomPadding: Theme.gap
        spacing: Theme.gap

        Repeater {
            model: root.table.searchController !== null ? 1 : 0

            SearchField {
                id: searchField

                width: head.width
                controller: root.table.searchController
                activeFocusOnTab: root.gate === null

                MouseArea {
                    anchors.fill: parent
                    enabled: root.gate !== null
                    onClicked: root.act(() => searchField.forceActiveFocus())
                }
                onWentDown: root.enterRows()
                onAccepted: if (text !== "" && list.count > 0) {
                    root.enterRows();
                    root.choose(0);
                }
            }
        }

        LabelView {
            width: parent.width
            topPadding: filled ? 4 : 0
            bottomPadding: topPadding
            visible: text !== ""
            control: root.table.header
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            onTextChanged: text => {
                if (visible)
                    Announcer.say(this, text);
            }

            readonly property bool filled: background.color.a > 0

            Rectangle {
                id: background

                anchors.fill: parent
                z: -1
                radius: 4
                color: Theme.drawn(root.table.header?.backgroundColor ?? "transparent")
            }
        }
    }

    EmptyPlace {
        id: emptyPlace

        anchors.top: head.bottom
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width - 2 * Theme.margin, 360)
        visible: list.count === 0 && (root.table.emptyHeading !== "" || searching)
        table: root.table
    }

    ListView {
        id: list

        property bool fading: false
        /** What the user types, to come to the row that begins so. */
        property string typed

        readonly property int page: Math.max(1, Math.floor(height / Theme.touchTarget) - 1)

        anchors.top: head.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        model: root.table
        reuseItems: true
        // What is made ahead stays out of the accessibility tree from Qt 6.8 on.
        cacheBuffer: 0
        currentIndex: -1
        highlightFollowsCurrentItem: false
        keyNavigationEnabled: false
        boundsBehavior: Flickable.StopAtBounds
        bottomMargin: Theme.gap + Editing.undoHeight
        clip: true
        focus: true
        activeFocusOnTab: true
        Accessible.role: Accessible.List
        Accessible.name: root.table.header?.text ?? ""

        onContentYChanged: root.openRow = null
        Keys.onUpPressed: if (currentIndex <= 0 && root.table.searchController !== null)
            root.table.searchController.active = true;
        else
            root.goTo(currentIndex - 1)
        Keys.onDownPressed: root.goTo(currentIndex < 0 ? indexAt(width / 2, contentY + 1)
                                                       : currentIndex + 1)
        Keys.onReturnPressed: if (currentIndex >= 0)
            root.choose(currentIndex)
        Keys.onEnterPressed: if (currentIndex >= 0)
            root.choose(currentIndex)
        Keys.onSpacePressed: if (currentIndex >= 0)
            root.choose(currentIndex)
        Keys.onDeletePressed: event => {
            // A key that is held down would delete row after row.
            if (currentIndex >= 0 && !event.isAutoRepeat)
                root.performAction(currentIndex, 0);
        }
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Menu
                    || event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier) {
                event.accepted = currentIndex >= 0;
                const row = currentItem;
                if (event.accepted)
                    root.openMenu(currentIndex, row.mapToItem(root, row.width / 2, row.height / 2));
                return;
            }
            if (event.text > " " && event.text !== "\x7f"
                    && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier))) {
                typed += event.text;
                typing.restart();
                const row = root.table.rowBeginningWith(typed);
                if (row >= 0)
                    root.goTo(row);
                event.accepted = true;
                return;
            }
            const rows = {
                [Qt.Key_PageUp]: currentIndex - page,
                [Qt.Key_PageDown]: currentIndex + page,
                [Qt.Key_Home]: 0,
                [Qt.Key_End]: count - 1
            };
            event.accepted = event.key in rows;
            if (event.accepted)
                root.goTo(rows[event.key]);
        }

        T.ScrollBar.vertical: PageScrollBar {}

        remove: Transition {
            enabled: list.fading

            NumberAnimation {
                property: "opacity"
                to: 0
                duration: Theme.fadeDuration
            }
        }

        displaced: Transition {
            enabled: list.fading

            NumberAnimation {
                property: "y"
                duration: Theme.rowDuration
                easing.type: Easing.OutCubic
            }
        }

        Timer {
            id: typing

            interval: 1000
            onTriggered: list.typed = ""
        }

        Timer {
            id: fadeEnd

            interval: Math.max(Theme.fadeDuration, Theme.rowDuration)
            onTriggered: list.fading = false
        }
    }
}
