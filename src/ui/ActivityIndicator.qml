pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** A spinner: dots that turn while work goes on. */
Item {
    id: root

    required property ToolkitActivityIndicatorView control

    readonly property int dots: 8

    implicitWidth: control.style === ToolkitActivityIndicatorView.Large ? 44 : 24
    implicitHeight: implicitWidth
    visible: !control.hidden
    Accessible.role: Accessible.Animation
    Accessible.name: control.accessibilityLabel

    Repeater {
        model: root.dots

        Rectangle {
            required property int index

            readonly property real angle: 2 * Math.PI * index / root.dots

            x: (root.width - width) / 2 * (1 + Math.cos(angle))
            y: (root.height - height) / 2 * (1 + Math.sin(angle))
            width: root.width / 6
            height: width
            radius: width / 2
            color: Theme.ink
            opacity: (index + 1) / root.dots
        }
    }

    RotationAnimator on rotation {
        from: 0
        to: 360
        duration: 1000
        loops: Animation.Infinite
        running: root.visible && root.control.animating
    }
}
