pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** A row of the labels of its cell, one below the other. Where the row has a height of its own, each
 * is cut off where it is too long. */
TableRow {
    id: root

    /** Stays while the row is between two cells, so that its lines need not be made anew. */
    property int lineCount: 0

    onCellChanged: if (cell !== null)
        lineCount = cell.labels.length

    contentItem: Item {
        implicitHeight: children[0]?.implicitHeight ?? 0

        Column {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width

            Repeater {
                model: root.lineCount

                LabelView {
                    required property int index

                    width: parent?.width ?? 0
                    // A blank first line keeps its place.
                    visible: index === 0 || text !== ""
                    control: root.labelAt(index)
                    color: index === 0 ? Theme.ink : Theme.faintInk
                    elide: root.fixedHeight < 0 ? Text.ElideNone : Text.ElideRight
                    wrapMode: root.fixedHeight < 0 ? Text.Wrap : Text.NoWrap
                }
            }
        }
    }
}
