import QtQuick
import Lantern

/** Minus and plus in one frame. */
FocusScope {
    id: root

    required property ToolkitStepper control

    // What assistive technology reads and sets.
    readonly property real value: control.value
    readonly property real from: control.minimum
    readonly property real to: control.maximum
    readonly property real stepSize: 1

    function setValue(wanted: real): void {
        while (control.value < Math.min(wanted, to))
            control.increment();
        while (control.value > Math.max(wanted, from))
            control.decrement();
    }

    implicitWidth: 2 * Theme.touchTarget + 8
    implicitHeight: Theme.controlHeight
    visible: !control.hidden
    activeFocusOnTab: true
    Accessible.role: Accessible.SpinBox
    Accessible.name: control.accessibilityLabel
    Accessible.onIncreaseAction: control.increment()
    Accessible.onDecreaseAction: control.decrement()
    Keys.onUpPressed: control.increment()
    Keys.onDownPressed: control.decrement()
    Keys.onRightPressed: control.increment()
    Keys.onLeftPressed: control.decrement()

    Rectangle {
        anchors.fill: parent
        radius: root.control.cornerRadius
        color: Theme.surface
        border.width: root.control.borderWidth
        border.color: Theme.edgeOf(root.control.borderColor)

        Rectangle {
            anchors.centerIn: parent
            width: 1
            height: parent.height - 2 * Theme.gap
            color: Theme.line
        }

        FocusRing {
            radius: parent.radius + 4
            shown: root.activeFocus
        }
    }

    Row {
        anchors.fill: parent

        StepButton {
            width: root.width / 2
            height: root.height
            symbol: "minus"
            name: root.control.accessibilityLabel + " \u2212"
            tint: Theme.ink
            enabled: root.control.value > root.control.minimum
            focusPolicy: Qt.NoFocus
            onClicked: root.control.decrement()
        }

        StepButton {
            width: root.width / 2
            height: root.height
            symbol: "plus"
            name: root.control.accessibilityLabel + " +"
            tint: Theme.ink
            enabled: root.control.value < root.control.maximum
            focusPolicy: Qt.NoFocus
            onClicked: root.control.increment()
        }
    }
}
