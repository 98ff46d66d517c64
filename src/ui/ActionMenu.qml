pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** The actions of one row, for a mouse. */
T.Menu {
    id: root

    property int row: -1
    property list<string> titles

    signal chosen(row: int, action: int)

    implicitWidth: implicitBackgroundWidth
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: Theme.gap
    verticalPadding: Theme.gap / 2

    background: Rectangle {
        implicitWidth: 200
        radius: Theme.sheetRadius
        color: Theme.surface
        border.width: 2
        border.color: Theme.edge
    }

    contentItem: ListView {
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: false
    }

    Instantiator {
        model: root.titles
        onObjectAdded: (index, object) => root.insertItem(index, object as T.MenuItem)
        onObjectRemoved: (index, object) => root.removeItem(object as T.MenuItem)

        T.MenuItem {
            id: item

            required property int index
            required property string modelData

            implicitHeight: Theme.controlHeight
            leftPadding: Theme.margin
            rightPadding: Theme.margin
            text: modelData
            Accessible.role: Accessible.MenuItem
            Accessible.name: text
            onTriggered: root.chosen(root.row, index)

            background: Rectangle {
                color: item.highlighted || item.down ? Theme.pressed : "transparent"
            }

            contentItem: PlainText {
                text: item.text
                elide: Text.ElideRight
                wrapMode: Text.NoWrap
                verticalAlignment: Text.AlignVCenter
            }
        }
    }
}
