import QtQuick
import Lantern

/** The background of a text field, in the control's look. */
Rectangle {
    id: root

    required property ToolkitTextInput control
    property bool focused: false

    radius: control.cornerRadius
    color: Theme.surface

    Rectangle {
        anchors.fill: parent
        radius: parent.radius
        color: Theme.drawn(root.control.backgroundColor)
        border.width: root.control.borderWidth
        border.color: Theme.edgeOf(root.control.borderColor)
    }

    FocusRing {
        radius: parent.radius + 4
        shown: root.focused
    }
}
