import QtQuick
import Lantern

/** Moves a screen sideways, on or off. */
Transition {
    property alias from: animation.from
    property alias to: animation.to

    NumberAnimation {
        id: animation

        property: "x"
        duration: Theme.slideDuration
        easing.type: Easing.OutCubic
    }
}
