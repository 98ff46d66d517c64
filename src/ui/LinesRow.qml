import QtQuick
import Lantern

/** A row of the labels of its cell, one below the other, each cut off where it is too long. */
TableRow {
    id: root

    contentItem: Item {
        implicitHeight: children[0]?.implicitHeight ?? 0

        Column {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width

            Repeater {
                model: root.cell?.labels ?? []

                LabelView {
                    required property int index
                    required property QtObject modelData

                    width: parent?.width ?? 0
                    visible: text !== ""
                    control: modelData as ToolkitLabel
                    color: index === 0 ? Theme.ink : Theme.faintInk
                    elide: Text.ElideRight
                    maximumLineCount: 1
                    wrapMode: Text.NoWrap
                }
            }
        }
    }
}
