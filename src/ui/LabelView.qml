import QtQuick
import Lantern

/** The text of a label, in the label's look. */
PlainText {
    required property ToolkitLabel control

    visible: control !== null && !control.hidden
    text: control?.text ?? ""
    color: Theme.textOf(control?.textColor ?? "#000000")
    font.pixelSize: Theme.scaled(control?.fontSize ?? 17)
    font.bold: control?.bold ?? false
    horizontalAlignment: control?.centered ? Text.AlignHCenter : Text.AlignLeft
}
