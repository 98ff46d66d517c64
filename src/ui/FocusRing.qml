import QtQuick
import Lantern

/** Shows around its parent which control the keyboard works. */
Rectangle {
    property bool shown: false

    anchors.fill: parent
    anchors.margins: -2 - border.width
    visible: shown
    color: "transparent"
    border.width: Theme.highContrast ? 3 : 2
    border.color: Theme.accent
}
