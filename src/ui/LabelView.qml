import QtQuick
import Lantern

/** The text of a label, in the label's look. */
PlainText {
    required property ToolkitLabel control

    visible: control !== null && !control.hidden
    text: control?.text ?? ""
    color: control?.textColor ?? Theme.ink
    font.pixelSize: control?.fontSize ?? Theme.bodyFont
    font.bold: control?.bold ?? false
    horizontalAlignment: control?.centered ? Text.AlignHCenter : Text.AlignLeft
}
