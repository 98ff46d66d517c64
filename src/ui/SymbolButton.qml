import QtQuick
import Lantern

/** A small button that shows a sign; it is spoken by its control's name. */
PushButton {
    id: root

    required property string symbol
    property int symbolSize: Theme.bodyFont

    leftPadding: Theme.gap
    rightPadding: Theme.gap
    implicitHeight: Theme.touchTarget
    objectName: control.accessibilityLabel
    Accessible.name: control.accessibilityLabel

    contentItem: PlainText {
        text: root.symbol
        color: root.filled ? Theme.accentInk : Theme.ink
        font.pixelSize: root.symbolSize
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
