pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** All quotes by topic. */
TableListView {
    id: root

    required property NewViewTableViewController controller

    table: controller.tableView
    delegate: QuoteRow {
        readonly property SubtitleTableViewCell quoteCell: cell as SubtitleTableViewCell

        owner: root
        title: quoteCell?.textLabel ?? null
        detail: quoteCell?.detailTextLabel ?? null
    }
}
