import QtQuick
import Lantern

/** A chevron and the word for going back; the chevron alone where there is no room for the word. */
TextButton {
    id: root

    property bool worded: true

    leftPadding: chevron.width + 2
    rightPadding: worded ? Theme.gap : 0
    contentVisible: worded

    Symbol {
        id: chevron

        anchors.verticalCenter: parent.verticalCenter
        x: root.worded ? 0 : (root.width - width) / 2
        name: "chevron.left"
        size: 26
        tint: root.tint
    }
}
