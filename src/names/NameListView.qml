pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lantern

/** Names, each with its count at the end of the row. */
TableListView {
    id: root

    required property TableViewController controller

    table: controller.tableView
    delegate: TableRow {
        id: row

        owner: root

        contentItem: RowLayout {
            spacing: Theme.gap

            LabelView {
                Layout.fillWidth: true
                control: row.labelAt(0)
            }

            LabelView {
                control: row.labelAt(1)
                color: Theme.faintInk
                font.pixelSize: Theme.secondaryFont
            }
        }
    }
}
