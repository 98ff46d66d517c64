import QtQuick
import Lantern

/** One of the labels of a row, with a quiet caption before its value where it has one. */
Item {
    id: root

    required property ToolkitLabel control

    property alias value: value

    readonly property int captionLength: control?.captionLength ?? 0

    height: value.height

    PlainText {
        id: caption

        anchors.baseline: value.baseline
        visible: root.captionLength > 0
        text: root.control?.text.slice(0, root.captionLength) ?? ""
        color: Theme.faintInk
        font.pixelSize: Theme.secondaryFont
        Accessible.ignored: true
    }

    LabelView {
        id: value

        x: caption.visible ? caption.width : 0
        width: root.width - x
        control: root.control
        text: root.control?.text.slice(root.captionLength) ?? ""
    }
}
