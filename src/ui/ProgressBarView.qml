import QtQuick
import Lantern

/** A bar that fills as work goes on. */
Rectangle {
    id: root

    required property ToolkitProgressBar control

    // What assistive technology reads.
    readonly property real value: control.progress
    readonly property real from: 0
    readonly property real to: 1

    implicitHeight: 4
    radius: height / 2
    color: Theme.well
    objectName: control.accessibilityLabel
    Accessible.role: Accessible.ProgressBar
    Accessible.name: control.accessibilityLabel
    Accessible.description: qsTr("%1 percent").arg(Math.round(control.progress * 100))

    Rectangle {
        width: root.width * root.control.progress
        height: root.height
        radius: root.radius
        color: Theme.accent

        Behavior on width {
            enabled: root.control.animated

            NumberAnimation {
                duration: Theme.slideDuration
                easing.type: Easing.OutCubic
            }
        }
    }
}
