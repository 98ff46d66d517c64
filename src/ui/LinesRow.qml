import QtQuick
import Lantern

/** A row of the labels of its cell, one below the other, each cut off where it is too long. */
TableRow {
    id: root

    contentItem: Column {
        Repeater {
            model: root.cell?.labels ?? []

            LabelView {
                required property QtObject modelData

                width: parent?.width ?? 0
                control: modelData as ToolkitLabel
                elide: Text.ElideRight
                maximumLineCount: 1
                wrapMode: Text.NoWrap
            }
        }
    }
}
