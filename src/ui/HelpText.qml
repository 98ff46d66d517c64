import QtQuick
import Lantern

/** A text of a screen that tells how to go about it. */
PlainText {
    id: root

    required property ToolkitTextView control

    text: control.text
    color: Theme.faintInk
    font.pixelSize: Theme.secondaryFont
    objectName: control.accessibilityLabel
    Accessible.role: Accessible.StaticText
    Accessible.name: control.accessibilityLabel
    Accessible.description: text
}
