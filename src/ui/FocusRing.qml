import QtQuick
import Lantern

/** Shows around its parent which control the keyboard works. */
Rectangle {
    property bool shown: false

    anchors.fill: parent
    anchors.margins: -3
    visible: shown
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
}
