import QtQuick
import Lantern

/** Rows that turn, of which the one in the middle is chosen. Only the user's turning tells so. */
FocusScope {
    id: root

    property alias model: list.model
    property alias delegate: list.delegate
    property string name

    readonly property int rowHeight: Math.max(43, Theme.scaled(34))
    readonly property alias currentRow: list.currentIndex

    // What assistive technology reads and sets.
    readonly property int value: list.currentIndex
    readonly property int from: 0
    readonly property int to: list.count - 1
    readonly property int stepSize: 1

    function setValue(row: real): void {
        turnTo(Math.round(row));
    }

    signal turned(row: int)

    function show(row: int): void {
        if (list.moving || row < 0 || row >= list.count)
            return;
        list.currentIndex = row;
        list.positionViewAtIndex(row, ListView.SnapPosition);
    }

    function turnTo(row: int): void {
        list.currentIndex = Math.max(0, Math.min(row, list.count - 1));
        if (list.currentIndex >= 0)
            turned(list.currentIndex);
    }

    function turn(steps: int): void {
        turnTo(list.currentIndex + steps);
    }

    implicitHeight: 5 * rowHeight
    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: name
    Accessible.description: (list.currentItem as Text)?.text ?? ""
    Accessible.onIncreaseAction: turn(1)
    Accessible.onDecreaseAction: turn(-1)
    Keys.onUpPressed: turn(-1)
    Keys.onDownPressed: turn(1)
    Keys.onReturnPressed: turn(0)
    Keys.onEnterPressed: turn(0)
    Keys.onSpacePressed: turn(0)
    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_PageUp]: -5,
            [Qt.Key_PageDown]: 5,
            [Qt.Key_Home]: -list.count,
            [Qt.Key_End]: list.count
        };
        event.accepted = event.key in steps;
        if (event.accepted)
            turn(steps[event.key]);
    }

    Rectangle {
        y: 2 * root.rowHeight
        width: parent.width
        height: root.rowHeight
        radius: 8
        color: Theme.well
        border.width: Theme.highContrast ? 1 : 0
        border.color: Theme.ink

        FocusRing {
            anchors.margins: 0
            radius: parent.radius
            shown: root.activeFocus
        }
    }

    ListView {
        id: list

        anchors.fill: parent
        clip: true
        reuseItems: true
        // What is made ahead stays out of the accessibility tree from Qt 6.8 on.
        cacheBuffer: 0
        keyNavigationEnabled: false
        snapMode: ListView.SnapToItem
        highlightRangeMode: ListView.StrictlyEnforceRange
        highlightMoveDuration: Theme.moveDuration
        highlightMoveVelocity: -1
        preferredHighlightBegin: 2 * root.rowHeight
        preferredHighlightEnd: 3 * root.rowHeight
        onMovementEnded: root.turned(currentIndex)

        TapHandler {
            onTapped: eventPoint => {
                const row = list.indexAt(1, eventPoint.position.y);
                if (row >= 0)
                    root.turnTo(row);
            }
        }
    }
}
