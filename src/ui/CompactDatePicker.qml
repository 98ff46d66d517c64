import QtQuick
import Lantern

/** A date as the calendar of its month, which may be folded behind a button. */
FocusScope {
    id: root

    required property ToolkitDatePicker picker

    property bool alwaysUnfolded: false
    property real room: Infinity
    property bool unfolded: alwaysUnfolded

    onUnfoldedChanged: if (unfolded && activeFocus)
        calendar.forceActiveFocus(Qt.TabFocusReason)

    implicitHeight: content.height

    Connections {
        target: Editing

        function onTurned(steps: int) {
            calendar.go(root.unfolded ? 7 * steps : steps);
        }
    }

    Column {
        id: content

        width: parent.width
        topPadding: root.unfolded ? 0 : Theme.gap

        TextButton {
            anchors.horizontalCenter: parent.horizontalCenter
            leftPadding: Theme.margin
            rightPadding: Theme.margin
            visible: !root.unfolded
            focus: visible
            text: root.picker.text
            Accessible.name: root.picker.accessibilityLabel
            Accessible.description: text
            onClicked: root.unfolded = true

            background: Rectangle {
                radius: 10
                color: Theme.surface
                border.width: 2
                border.color: Theme.edge
            }
        }

        MonthCalendar {
            id: calendar

            width: parent.width
            visible: root.unfolded
            focus: root.alwaysUnfolded
            picker: root.picker
            room: root.room
        }
    }
}
