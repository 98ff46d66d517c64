import QtQuick
import QtQuick.Templates as T
import Lantern

/** A scroll bar that can be held even where the page is very long. */
T.ScrollBar {
    id: root

    implicitWidth: 14
    implicitHeight: 14
    padding: 3
    minimumSize: Math.min(0.5, Theme.touchTarget / Math.max(1, height))
    visible: size < 1
    policy: T.ScrollBar.AsNeeded
    Accessible.ignored: true

    contentItem: Rectangle {
        radius: width / 2
        color: Theme.ink
        opacity: root.pressed ? 0.6 : root.hovered ? 0.45 : 0.25
    }
}
