pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Lantern

/** The actions of one row, for a mouse. */
Menu {
    id: root

    property int row: -1
    property list<string> titles

    signal chosen(row: int, action: int)

    Instantiator {
        model: root.titles
        onObjectAdded: (index, object) => root.insertItem(index, object as MenuItem)
        onObjectRemoved: (index, object) => root.removeItem(object as MenuItem)

        MenuItem {
            required property int index
            required property string modelData

            implicitHeight: Theme.touchTarget
            text: modelData
            objectName: text
            font.pixelSize: Theme.bodyFont
            onTriggered: root.chosen(root.row, index)
        }
    }
}
