import QtQuick
import QtQuick.Layouts
import Lantern

/** A form of a quote: its text first, with what belongs to it, then its fields; in a low and wide
 * window they stand beside it. */
FormPage {
    id: root

    property alias quote: quoteColumn.data
    property alias fields: fieldColumn.data

    /** Whether there is room for all, so that the box of the quote may hug its text. */
    readonly property bool roomy: !low && width >= 660 + 2 * Theme.margin
    readonly property bool low: Window.height < 500 && width >= 600

    widest: low ? 1000 : Theme.formWidth

    GridLayout {
        Layout.fillWidth: true
        Layout.fillHeight: !root.roomy
        Layout.alignment: Qt.AlignTop
        columns: root.low ? 2 : 1
        columnSpacing: Theme.margin
        rowSpacing: Theme.gap

        ColumnLayout {
            id: quoteColumn

            Layout.fillWidth: true
            Layout.fillHeight: !root.roomy
            Layout.preferredWidth: 54
            spacing: Theme.gap
        }

        GridLayout {
            id: fieldColumn

            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: 46
            columns: root.roomy ? 2 : 1
            columnSpacing: 24
            rowSpacing: Theme.gap
        }
    }
}
