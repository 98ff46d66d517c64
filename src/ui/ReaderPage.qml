import QtQuick
import Lantern

/** A text alone, to read: keys scroll it, and the bar above it goes away on a tap or after a while.
 * A double tap or Return begins to edit it where it stands, Escape ends that. */
FocusScope {
    id: root

    required property ToolkitTextView control

    /** The size that the user reads at elsewhere, in points. */
    property real chosenSize: 0

    /** Whether the bar is out of the way. */
    property bool barAway: false

    readonly property bool reading: !control.editing

    // The text stays where it is on the screen while the bar above comes and goes.
    readonly property real topEdge: parent?.y ?? 0
    property real lowestTop: 0

    signal tapped

    function edit(): void {
        barAway = false;
        text.area.forceActiveFocus();
    }

    onTopEdgeChanged: lowestTop = Math.max(lowestTop, topEdge)
    onReadingChanged: if (reading && activeFocus)
        keys.forceActiveFocus()

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }

    Item {
        id: keys

        focus: true
        onActiveFocusChanged: if (activeFocus)
            Announcer.focus(text.area)
        Keys.onTabPressed: event => {
            root.barAway = false;
            event.accepted = false;
        }
        Keys.onBacktabPressed: event => {
            root.barAway = false;
            event.accepted = false;
        }
        Keys.onPressed: event => {
            const line = text.area.cursorRectangle.height;
            const page = text.pageHeight - line;
            event.accepted = true;
            if (event.matches(StandardKey.Copy))
                text.area.copy();
            else if (event.matches(StandardKey.SelectAll))
                text.area.selectAll();
            else if (event.key === Qt.Key_Up || event.key === Qt.Key_Down)
                text.scroll((event.key === Qt.Key_Up ? -2 : 2) * line);
            else if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown)
                text.scroll(event.key === Qt.Key_PageUp ? -page : page);
            else if (event.key === Qt.Key_Space)
                text.scroll(event.modifiers & Qt.ShiftModifier ? -page : page);
            else if (event.key === Qt.Key_Home || event.key === Qt.Key_End)
                text.scroll((event.key === Qt.Key_Home ? -1 : 1) * text.area.height);
            else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter
                     || event.key === Qt.Key_F2)
                root.edit();
            else
                event.accepted = false;
        }
    }

    FormTextArea {
        id: text

        readonly property bool fits: area.contentHeight <= pageHeight

        y: Theme.margin + Math.max(0, root.lowestTop - root.topEdge)
        x: Math.max(1.5 * Theme.margin, (parent.width - 690) / 2)
        width: parent.width - 2 * x
        height: parent.height - y
        outside: x
        control: root.control
        bare: true
        editsOnPress: !root.reading
        margin: 0
        lead: fits ? (pageHeight - area.contentHeight) / 2 : 0
        horizontalAlignment: fits ? TextEdit.AlignHCenter : TextEdit.AlignLeft
        fontFamily: "serif"
        fontSize: Math.max(root.width >= 600 ? 30 : 26, root.chosenSize)
    }

    // Sees the taps that the text takes.
    Item {
        anchors.fill: parent

        TapHandler {
            onTapped: {
                root.tapped();
                if (root.reading)
                    root.barAway = !root.barAway;
            }
            onDoubleTapped: eventPoint => {
                const place = text.area.mapFromItem(parent, eventPoint.position);
                text.area.cursorPosition = text.area.positionAt(place.x, place.y);
                root.edit();
            }
            enabled: root.reading
        }

        HoverHandler {
            id: hover

            property bool atTop: false

            acceptedDevices: PointerDevice.Mouse
            onPointChanged: if (hovered) {
                // A point that is not known yet is at the origin.
                atTop = point.position.y > 0 && point.position.y < Theme.touchTarget;
                if (atTop)
                    root.barAway = false;
            }
        }
    }

    Timer {
        interval: 4000
        running: root.reading && !root.barAway && keys.activeFocus && !hover.atTop
        // Who hears the screen finds the bar by its place in it.
        onTriggered: root.barAway = !Announcer.isHeard()
    }
}
