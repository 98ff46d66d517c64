pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lantern

/** A date as three wheels: day, month and year. */
FocusScope {
    id: root

    required property ToolkitDatePicker picker

    function showDate(): void {
        days.show(picker.day - 1);
        months.show(picker.month - 1);
        years.show(picker.year - 1);
    }

    implicitHeight: wheels.implicitHeight
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
            days.turn(steps);
        }
    }

    RowLayout {
        id: wheels

        anchors.fill: parent
        spacing: Theme.gap

        Wheel {
            id: days

            Layout.preferredWidth: 72
            focus: true
            name: qsTr("Day")
            model: 31
            onTurned: row => root.picker.choose(root.picker.year, root.picker.month, row + 1)

            delegate: WheelRow {
                required property int index

                text: index + 1
                color: index < root.picker.daysInMonth(root.picker.year, root.picker.month)
                       ? Theme.ink : Theme.line
            }
        }

        Wheel {
            id: months

            Layout.fillWidth: true
            name: qsTr("Month")
            model: root.picker.monthNames
            onTurned: row => root.picker.choose(root.picker.year, row + 1, root.picker.day)

            delegate: WheelRow {
                required property string modelData

                text: modelData
            }
        }

        Wheel {
            id: years

            Layout.preferredWidth: 96
            name: qsTr("Year")
            model: 9999
            onTurned: row => root.picker.choose(row + 1, root.picker.month, root.picker.day)

            delegate: WheelRow {
                required property int index

                text: index + 1
            }
        }
    }
}
