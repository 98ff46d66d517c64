pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lantern

/** A date in the calendar of its month. The arrow keys go from day to day and week to week, Page
 * Up and Page Down from month to month. */
FocusScope {
    id: root

    required property ToolkitDatePicker picker

    property int year: picker.year
    property int month: picker.month

    /** How high the calendar may be. A month has its weeks alone where that is little. */
    property real room: Infinity

    readonly property real headHeight: Theme.controlHeight + Theme.scaled(20)
    readonly property int weeks: headHeight + 6 * Theme.touchTarget <= room ? 6
                                 : Math.ceil((firstCell + dayCount) / 7)
    readonly property real dayHeight: Math.max(28, Math.min(Theme.touchTarget, (room - headHeight) / weeks))
    readonly property int firstCell: (picker.weekday(year, month, 1) - picker.firstWeekday + 7) % 7
    readonly property int dayCount: picker.daysInMonth(year, month)

    function step(months: int): void {
        const count = Math.max(12, Math.min(year * 12 + month - 1 + months, 9999 * 12 + 11));
        year = Math.floor(count / 12);
        month = count % 12 + 1;
    }

    /** Chooses the day that is so many days from the chosen one. */
    function go(days: int): void {
        year = picker.year;
        month = picker.month;
        let day = picker.day + days;
        if (day < 1) {
            step(-1);
            day += dayCount;
        } else if (day > dayCount) {
            day -= dayCount;
            step(1);
        }
        picker.choose(year, month, Math.max(1, Math.min(day, dayCount)));
    }

    function goMonths(months: int): void {
        year = picker.year;
        month = picker.month;
        step(months);
        picker.choose(year, month, picker.day);
    }

    implicitHeight: layout.implicitHeight

    Connections {
        target: root.picker

        function onDateChanged() {
            root.year = root.picker.year;
            root.month = root.picker.month;
        }
    }

    ColumnLayout {
        id: layout

        width: parent.width
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            spacing: 0

            StepButton {
                symbol: "double.left"
                name: qsTr("Previous year")
                onClicked: root.step(-12)
            }

            StepButton {
                symbol: "chevron.left"
                name: qsTr("Previous month")
                onClicked: root.step(-1)
            }

            PlainText {
                Layout.fillWidth: true
                wrapMode: Text.NoWrap
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 13
                elide: Text.ElideRight
                text: root.picker.monthTitle(root.year, root.month)
                font.bold: true
                horizontalAlignment: Text.AlignHCenter
            }

            StepButton {
                symbol: "chevron.right"
                name: qsTr("Next month")
                onClicked: root.step(1)
            }

            StepButton {
                symbol: "double.right"
                name: qsTr("Next year")
                onClicked: root.step(12)
            }
        }

        GridLayout {
            id: grid

            Layout.fillWidth: true
            columns: 7
            rowSpacing: 0
            columnSpacing: 0
            activeFocusOnTab: true
            focus: true
            Accessible.role: Accessible.Table
            Accessible.name: root.picker.accessibilityLabel
            Keys.onLeftPressed: root.go(-1)
            Keys.onRightPressed: root.go(1)
            Keys.onUpPressed: root.go(-7)
            Keys.onDownPressed: root.go(7)
            Keys.onReturnPressed: root.go(0)
            Keys.onEnterPressed: root.go(0)
            Keys.onSpacePressed: root.go(0)
            Keys.onPressed: event => {
                event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
                if (event.accepted)
                    root.goMonths(event.key === Qt.Key_PageUp ? -1 : 1);
            }

            Repeater {
                model: 7

                PlainText {
                    required property int index

                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    Layout.preferredHeight: Theme.scaled(20)
                    text: root.picker.weekdayNames[(root.picker.firstWeekday - 1 + index) % 7]
                    color: Theme.faintInk
                    font.pixelSize: Theme.captionFont
                    wrapMode: Text.NoWrap
                    horizontalAlignment: Text.AlignHCenter
                }
            }

            Repeater {
                model: 42

                DayButton {
                    required property int index
                    readonly property int day: index - root.firstCell + 1

                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    Layout.preferredHeight: root.dayHeight
                    visible: index < 7 * root.weeks
                    shown: day >= 1 && day <= root.dayCount
                    text: root.picker.number(day)
                    chosen: root.year === root.picker.year && root.month === root.picker.month
                            && day === root.picker.day
                    ringed: chosen && grid.activeFocus
                    Accessible.name: shown ? root.picker.dayTitle(root.month, day) : ""
                    onClicked: root.picker.choose(root.year, root.month, day)
                }
            }
        }
    }
}
