import QtQuick
import QtQuick.Templates as T
import Lantern

/** A switch at the right end of the line that names it. */
T.Switch {
    id: root

    required property ToolkitSwitch control

    implicitWidth: 200
    implicitHeight: Math.max(Theme.touchTarget, implicitContentHeight + 2 * Theme.gap)
    visible: !control.hidden
    checked: control.on
    Accessible.role: Accessible.CheckBox
    Accessible.name: control.accessibilityLabel
    Accessible.checkable: true
    Accessible.checked: control.on
    Accessible.onPressAction: control.toggle()
    Accessible.onToggleAction: control.toggle()
    onToggled: control.toggle()
    Keys.onReturnPressed: control.toggle()
    Keys.onEnterPressed: control.toggle()

    Connections {
        target: root.control

        // A tap takes the place of the binding to the control.
        function onOnChanged() {
            root.checked = root.control.on;
        }
    }

    background: Item {
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Theme.line
        }
    }

    contentItem: PlainText {
        text: root.text
        rightPadding: root.indicator.width + Theme.gap
        verticalAlignment: Text.AlignVCenter
    }

    indicator: Rectangle {
        x: root.width - width
        y: (root.height - height) / 2
        width: 51
        height: 31
        radius: height / 2
        color: root.checked ? Theme.accent : Theme.well
        border.width: root.checked ? 0 : 2
        border.color: Theme.faintInk

        Behavior on color {
            ColorAnimation {
                duration: Theme.fadeDuration
            }
        }

        Rectangle {
            x: root.checked ? parent.width - width - 4 : 5
            y: (parent.height - height) / 2
            width: root.checked ? 23 : 19
            height: width
            radius: height / 2
            color: root.checked ? Theme.accentInk : Theme.faintInk

            Behavior on x {
                NumberAnimation {
                    duration: Theme.moveDuration
                    easing.type: Easing.OutCubic
                }
            }
        }

        FocusRing {
            radius: parent.radius + 4
            shown: root.visualFocus
        }
    }
}
