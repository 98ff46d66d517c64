pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** A screen that is a table whose rows are lines of text. */
TableListView {
    id: root

    required property TableViewController controller

    table: controller.tableView
    delegate: LinesRow {
        owner: root
    }
}
