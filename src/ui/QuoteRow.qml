import QtQuick
import Lantern

/** A row of two lines, each cut off where it is too long. */
TableRow {
    id: root

    property ToolkitLabel title: null
    property ToolkitLabel detail: null

    text: title?.text ?? ""

    contentItem: Column {
        LabelView {
            width: parent.width
            control: root.title
            elide: Text.ElideRight
            maximumLineCount: 1
            wrapMode: Text.NoWrap
        }

        LabelView {
            width: parent.width
            control: root.detail
            elide: Text.ElideRight
            maximumLineCount: 1
            wrapMode: Text.NoWrap
        }
    }
}
