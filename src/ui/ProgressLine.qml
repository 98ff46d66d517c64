import QtQuick
import Lantern

/** A bar that fills as work goes on. */
Rectangle {
    id: root

    /** From 0 to 1, as assistive technology reads it too. */
    required property real value
    required property string label

    readonly property real from: 0
    readonly property real to: 1

    property bool animated: true

    implicitHeight: 4
    radius: height / 2
    color: Theme.well
    Accessible.role: Accessible.ProgressBar
    Accessible.name: label
    Accessible.description: qsTr("%1 percent").arg(Math.round(value * 100))

    Rectangle {
        width: root.width * root.value
        height: root.height
        radius: root.radius
        color: Theme.accent

        Behavior on width {
            enabled: root.animated

            NumberAnimation {
                duration: Theme.slideDuration
                easing.type: Easing.OutCubic
            }
        }
    }
}
