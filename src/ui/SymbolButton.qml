import QtQuick
import Lantern

/** A small button that shows a sign alone; it is spoken by its control's name. */
TextButton {
    id: root

    required property ToolkitButton control
    required property string sign
    property int signSize: 17

    visible: !control.hidden
    enabled: control.enabled
    bold: true
    text: sign
    font.pixelSize: Theme.scaled(signSize)
    Accessible.name: control.accessibilityLabel
    onClicked: control.press()

    Hint {
        text: root.control.accessibilityLabel
        shown: root.hovered
    }
}
