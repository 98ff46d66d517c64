import QtQuick
import QtQuick.Templates as T
import Lantern

/** A button that is only its words, or a symbol in their place, as bars and sheets have them. */
T.Button {
    id: root

    property color tint: Theme.accent
    property bool bold: false
    property string symbol: ""
    property bool contentVisible: symbol === ""

    implicitWidth: Math.max(Theme.touchTarget, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Theme.controlHeight
    font.pixelSize: Theme.bodyFont
    leftPadding: Theme.gap
    rightPadding: Theme.gap
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    Hint {
        text: root.text
        shown: root.hovered && !root.contentVisible
    }

    Symbol {
        anchors.centerIn: parent
        visible: name !== ""
        name: root.symbol
        tint: root.enabled ? root.tint : Theme.faintInk
    }

    contentItem: PlainText {
        text: root.contentVisible ? root.text : ""
        color: root.enabled ? root.tint : Theme.faintInk
        font.pixelSize: root.font.pixelSize
        font.bold: root.bold
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: root.down ? Theme.pressed : root.hovered ? Theme.hovered : "transparent"
    }

    FocusRing {
        anchors.margins: 2
        radius: 8
        shown: root.visualFocus
    }
}
