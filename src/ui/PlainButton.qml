import QtQuick
import QtQuick.Templates as T
import Lantern

/** A button in words, outlined or filled, of which a screen fills one at most. */
T.Button {
    id: root

    property bool filled: false
    property bool destructive: false

    readonly property color fill: destructive ? Theme.danger : filled ? Theme.accent : Theme.surface

    implicitWidth: Math.max(Theme.touchTarget, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(Theme.touchTarget, implicitContentHeight + topPadding + bottomPadding)
    padding: 10
    leftPadding: Theme.margin
    rightPadding: Theme.margin
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    contentItem: PlainText {
        text: root.text
        color: root.filled || root.destructive ? Theme.accentInk : Theme.ink
        font.bold: root.filled || root.destructive
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: root.fill
        border.width: root.filled || root.destructive ? 0 : 2
        border.color: Theme.edge

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.pressed
            visible: root.down
        }

        FocusRing {
            radius: parent.radius + 4
            shown: root.visualFocus
        }
    }
}
