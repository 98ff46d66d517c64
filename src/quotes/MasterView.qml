pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** The list of quotes. */
TableListView {
    id: root

    required property MasterViewController controller

    table: controller.tableView
    delegate: QuoteRow {
        readonly property MasterTableViewCell quoteCell: cell as MasterTableViewCell

        owner: root
        title: quoteCell?.TextLabel ?? null
        detail: quoteCell?.DetailTextLabel ?? null
    }
}
