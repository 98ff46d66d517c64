pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** A row of the labels of its cell, one below the other: what it is about in bold where more is
 * said of it, then less and less loud. Where the row has a height of its own, each is cut off where
 * it is too long. */
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

                LabelLine {
                    required property int index

                    readonly property bool last: index > 0 && index === root.lineCount - 1

                    width: parent?.width ?? 0
                    control: root.labelAt(index)
                    // A blank first line keeps its place.
                    visible: index === 0 || value.text !== ""
                    value.color: last ? Theme.faintInk : Theme.ink
                    value.font.bold: index === 0 && (captionLength > 0 || (root.labelAt(1)?.text ?? "") !== "")
                    value.font.pixelSize: index === 0 ? Theme.bodyFont
                                        : last ? Theme.captionFont : Theme.secondaryFont
                    value.elide: root.fixedHeight < 0 ? Text.ElideNone : Text.ElideRight
                    value.wrapMode: root.fixedHeight < 0 ? Text.Wrap : Text.NoWrap
                }
            }
        }
    }
}
