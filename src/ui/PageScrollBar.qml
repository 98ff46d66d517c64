import QtQuick
import QtQuick.Templates as T
import Lantern

/** A scroll bar that can be held even where the page is very long. */
T.ScrollBar {
    id: root

    implicitWidth: 14
    implicitHeight: 14
    padding: 4
    minimumSize: Math.min(0.5, Theme.touchTarget / Math.max(1, height))
    visible: size < 1
    policy: T.ScrollBar.AsNeeded
    Accessible.ignored: true

    contentItem: Rectangle {
        radius: width / 2
        color: Theme.faintInk
        opacity: root.pressed ? 1 : root.hovered ? 0.85 : 0.7
    }
}
