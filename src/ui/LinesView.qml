pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** A text to read, however long: a row for each line, wrapped or cut off as its control asks. Rows
 * are selected by dragging with the mouse, by a long press, or with Shift and the arrow keys; what
 * is copied is their text as it stands. */
FocusScope {
    id: root

    required property ToolkitTextView control

    /** What assistive technology reads. */
    readonly property string text: control.text

    /** The rows between which all is selected; none while they are negative. */
    property int anchorRow: -1
    property int endRow: -1

    readonly property int firstRow: Math.min(anchorRow, endRow)
    readonly property int lastRow: Math.max(anchorRow, endRow)

    function select(from: int, to: int): void {
        anchorRow = Math.max(-1, Math.min(from, list.count - 1));
        endRow = Math.max(-1, Math.min(to, list.count - 1));
    }

    function selectAll(): void {
        select(0, list.count - 1);
    }

    function copy(): void {
        if (firstRow >= 0)
            Clipboard.copy(control.lines.textOfRows(firstRow, lastRow));
    }

    function extend(rows: int): void {
        const end = Math.max(0, endRow + rows);
        select(anchorRow < 0 ? end : anchorRow, end);
        list.positionViewAtIndex(endRow, ListView.Contain);
    }

    function rowAt(y: real): int {
        const row = list.indexAt(list.width / 2, list.contentY + y);
        return row >= 0 ? row : y < 0 ? 0 : list.count - 1;
    }

    function scroll(points: real): void {
        const end = Math.max(list.originY, list.originY + list.contentHeight - list.height);
        list.contentY = Math.max(list.originY, Math.min(list.contentY + points, end));
    }

    implicitHeight: 160
    Accessible.role: Accessible.EditableText
    Accessible.name: control.accessibilityLabel
    Accessible.readOnly: true
    Accessible.multiLine: true

    Connections {
        target: root.control.lines

        function onModelReset() {
            root.select(-1, -1);
        }
    }

    FieldFrame {
        anchors.fill: parent
        control: root.control
        focused: list.activeFocus
    }

    ActionMenu {
        id: menu

        titles: [qsTr("Copy"), qsTr("Select All")]
        onChosen: (row, action) => action === 0 ? root.copy() : root.selectAll()
    }

    ListView {
        id: list

        anchors.fill: parent
        anchors.margins: 6
        model: root.control.lines
        reuseItems: true
        // What is made ahead stays out of the accessibility tree from Qt 6.8 on.
        cacheBuffer: 0
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        focus: true
        activeFocusOnTab: true
        keyNavigationEnabled: false
        Keys.onUpPressed: event => event.modifiers & Qt.ShiftModifier
                                   ? root.extend(-1) : root.scroll(-2 * Theme.touchTarget)
        Keys.onDownPressed: event => event.modifiers & Qt.ShiftModifier
                                     ? root.extend(1) : root.scroll(2 * Theme.touchTarget)
        Keys.onPressed: event => {
            event.accepted = true;
            if (event.matches(StandardKey.Copy))
                root.copy();
            else if (event.matches(StandardKey.SelectAll))
                root.selectAll();
            else if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown)
                root.scroll(event.key === Qt.Key_PageUp ? -height : height);
            else if (event.key === Qt.Key_Home)
                list.positionViewAtBeginning();
            else if (event.key === Qt.Key_End)
                list.positionViewAtEnd();
            else
                event.accepted = false;
        }

        T.ScrollBar.vertical: PageScrollBar {}

        delegate: Rectangle {
            required property int index
            required property string line
            readonly property bool selected: index >= root.firstRow && index <= root.lastRow

            width: list.width
            height: Math.max(Theme.scaled(22), words.implicitHeight)
            color: selected ? Theme.accent : "transparent"

            PlainText {
                id: words

                anchors.fill: parent
                leftPadding: 6
                rightPadding: 16
                text: parent.line
                color: parent.selected ? Theme.accentInk : Theme.ink
                font.pixelSize: Theme.secondaryFont
                elide: Text.ElideRight
                wrapMode: root.control.wrapsLines ? Text.Wrap : Text.NoWrap
            }
        }
    }

    // A finger's drag scrolls; the mouse's selects.
    DragHandler {
        id: drag

        property int start: -1

        function follow(): void {
            const y = centroid.position.y - list.y;
            if (y < 0 || y > list.height)
                root.scroll(y < 0 ? -Theme.touchTarget / 2 : Theme.touchTarget / 2);
            root.select(start, root.rowAt(Math.max(0, Math.min(y, list.height - 1))));
        }

        acceptedDevices: PointerDevice.Mouse
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        target: null
        onActiveChanged: {
            list.forceActiveFocus(Qt.MouseFocusReason);
            start = root.rowAt(centroid.pressPosition.y - list.y);
        }
        onCentroidChanged: if (active)
            follow()
    }

    TapHandler {
        acceptedButtons: Qt.LeftButton
        onTapped: {
            list.forceActiveFocus(Qt.MouseFocusReason);
            root.select(-1, -1);
        }
        onLongPressed: {
            const row = root.rowAt(point.position.y - list.y);
            root.select(row, row);
            menu.popup(root, point.position.x, point.position.y);
        }
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => menu.popup(root, eventPoint.position.x, eventPoint.position.y)
    }
}
