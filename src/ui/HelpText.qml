import QtQuick
import Lantern

/** A text of a screen that tells how to go about it. */
ReadOnlyText {
    required property ToolkitTextView control

    text: control.text
    name: control.accessibilityLabel
    color: Theme.faintInk
}
