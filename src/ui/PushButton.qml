import QtQuick
import QtQuick.Templates as T
import Lantern

/** A button of a screen. It fades when its control is hidden or shown. */
T.Button {
    id: root

    required property ToolkitButton control

    /** A symbol before the title, which begins after it. */
    property string symbol: ""

    /** A button that has no border is filled instead. */
    readonly property bool filled: control.borderWidth === 0

    /** From 0, hidden, to 1; a column may fold its place away with it. */
    property real shown: control.hidden ? 0 : 1

    implicitWidth: Math.max(Theme.touchTarget, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(Theme.touchTarget, implicitContentHeight + topPadding + bottomPadding)
    padding: 10
    leftPadding: Theme.margin
    rightPadding: symbol === "" ? Theme.margin : Theme.gap
    visible: shown > 0
    opacity: shown
    enabled: control.enabled && !control.hidden
    text: control.accessibilityLabel
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: root.clicked()
    onClicked: control.press()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    Connections {
        target: root.control

        function onHiddenChanged() {
            fade.stop();
            fade.duration = Math.min(root.control.hidingDuration * 1000,
                                     Theme.reducedMotion ? 100 : Infinity);
            fade.to = root.control.hidden ? 0 : 1;
            fade.start();
        }
    }

    NumberAnimation {
        id: fade

        target: root
        property: "shown"
        easing.type: Easing.InOutQuad
    }

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        x: Theme.margin
        visible: root.symbol !== ""
        name: root.symbol
    }

    font.pixelSize: Theme.bodyFont

    contentItem: PlainText {
        font.pixelSize: root.font.pixelSize
        leftPadding: root.symbol === "" ? 0 : 24 * Math.min(Theme.textScale, 1.5) + Theme.margin
        text: root.text
        color: !root.control.enabled ? Theme.textOf(root.control.disabledTitleColor)
                                     : root.filled ? Theme.accentInk : Theme.ink
        font.bold: root.filled
        horizontalAlignment: root.symbol === "" ? Text.AlignHCenter : Text.AlignLeft
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        radius: root.filled ? Theme.buttonRadius : root.control.cornerRadius
        color: root.filled ? Theme.accent : Theme.surface

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.drawn(root.control.backgroundColor)
            border.width: root.control.borderWidth
            border.color: Theme.edgeOf(root.control.borderColor)
        }

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.pressed
            visible: root.down
        }

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.hovered
            visible: root.hovered && !root.down
        }

        FocusRing {
            radius: parent.radius + 4
            shown: root.visualFocus
        }
    }
}
