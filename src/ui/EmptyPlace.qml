pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** What a table without rows says in their place, and what it offers to do about it. */
T.Control {
    id: root

    required property ToolkitTableView table

    readonly property SearchController searchController: table.searchController
    readonly property string search: searchController?.searchBar.text ?? ""
    readonly property bool searching: search !== ""

    Accessible.role: Accessible.Grouping
    Accessible.name: heading.text

    Flickable {
        anchors.fill: parent
        contentHeight: Math.max(column.height, height)
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Column {
            id: column

            y: Math.max(0, (parent.height - height) / (root.searching ? 4 : 2.4))
            width: root.width
            spacing: 12
            topPadding: Theme.gap
            bottomPadding: Theme.gap

            LampMark {
                anchors.horizontalCenter: parent.horizontalCenter
                visible: !root.searching && root.height > 330
                width: 88
                lit: false
            }

            PlainText {
                id: heading

                width: parent.width
                text: root.searching ? qsTr("Nothing found") : root.table.emptyHeading
                font.pixelSize: Theme.titleFont
                font.bold: true
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            PlainText {
                width: parent.width
                bottomPadding: Theme.gap
                text: root.searching ? qsTr("Nothing here contains \u201c%1\u201d.").arg(root.search)
                                     : root.table.emptySentence
                color: Theme.faintInk
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            Repeater {
                model: root.searching ? [qsTr("Clear search")] : root.table.emptySteps

                PlainButton {
                    required property int index
                    required property string modelData

                    width: column.width
                    text: modelData
                    filled: index === 0 && !root.searching
                    onClicked: {
                        if (root.searching)
                            root.searchController.searchBar.text = "";
                        else
                            root.table.takeEmptyStep(index);
                    }
                }
            }
        }
    }
}
