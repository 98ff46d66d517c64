import QtQuick
import QtQuick.Templates as T
import Lantern

/** A button that is only its words, or a symbol in their place, as bars and sheets have them. */
T.Button {
    id: root

    property color tint: Theme.accent
    property bool bold: false
    property string symbol: ""

    implicitWidth: Math.max(Theme.touchTarget, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Theme.touchTarget
    font.pixelSize: Theme.bodyFont
    leftPadding: Theme.gap
    rightPadding: Theme.gap
    objectName: text
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    Symbol {
        anchors.centerIn: parent
        visible: name !== ""
        name: root.symbol
        tint: root.tint
        opacity: root.contentItem.opacity
    }

    contentItem: PlainText {
        text: root.symbol === "" ? root.text : ""
        color: root.tint
        font.pixelSize: root.font.pixelSize
        font.bold: root.bold
        opacity: root.down ? 0.4 : root.enabled ? 1 : 0.5
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    FocusRing {
        anchors.margins: 2
        radius: 8
        shown: root.visualFocus
    }
}
