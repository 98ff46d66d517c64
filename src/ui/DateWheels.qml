pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lantern

/** A date as three wheels: day, month and year, in the locale's order. */
FocusScope {
    id: root

    required property ToolkitDatePicker picker

    readonly property list<string> names: [qsTr("Day"), qsTr("Month"), qsTr("Year")]

    function kindAt(index: int): int {
        return "dMy".indexOf(picker.order.charAt(index));
    }

    function showDate(): void {
        const rows = [picker.day - 1, picker.month - 1, picker.year - 1];
        for (let i = 0; i < wheels.count; ++i)
            (wheels.itemAt(i) as Wheel).show(rows[kindAt(i)]);
    }

    function choose(kind: int, row: int): void {
        const date = [picker.day, picker.month, picker.year];
        date[kind] = row + 1;
        picker.choose(date[2], date[1], date[0]);
    }

    implicitHeight: row.implicitHeight
    Component.onCompleted: showDate()

    Connections {
        target: root.picker

        function onDateChanged() {
            root.showDate();
        }
    }

    Connections {
        target: Editing

        function onTurned(steps: int) {
            (wheels.itemAt(root.picker.order.indexOf("d")) as Wheel).turn(steps);
        }
    }

    RowLayout {
        id: row

        anchors.fill: parent
        spacing: Theme.gap

        Repeater {
            id: wheels

            model: 3

            Wheel {
                id: wheel

                required property int index
                readonly property int kind: root.kindAt(index)

                Layout.fillWidth: kind === 1
                Layout.preferredWidth: Theme.scaled([56, 120, 76][kind])
                focus: kind === 0
                name: root.names[kind]
                model: [31, 12, 9999][kind]
                onTurned: row => root.choose(kind, row)

                delegate: WheelRow {
                    readonly property bool exists: wheel.kind !== 0
                        || index < root.picker.daysInMonth(root.picker.year, root.picker.month)

                    owner: wheel
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 13
                    text: wheel.kind === 1 ? root.picker.monthNames[index]
                                           : root.picker.number(index + 1)
                    color: !exists ? Theme.line : chosen ? Theme.ink : Theme.faintInk
                }
            }
        }
    }
}
