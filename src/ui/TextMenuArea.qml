import QtQuick
import Lantern

/** Opens the menu of a text: the right button in it, or the Menu key. */
MouseArea {
    id: root

    required property Item field

    anchors.fill: field
    acceptedButtons: Qt.RightButton
    onPressed: mouse => Editing.menuAsked(field, Qt.point(mouse.x, mouse.y))
}
