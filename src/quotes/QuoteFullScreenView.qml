import QtQuick
import Lantern

/** The quote alone, large and calm. */
Rectangle {
    id: root

    required property QuoteFullScreenViewController controller

    color: Theme.surface

    TapHandler {
        onTapped: root.controller.touchesBegan()
    }

    FormTextArea {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 2 * Theme.margin
        width: Math.min(parent.width - 4 * Theme.margin, Theme.readableWidth)
        height: parent.height - y
        control: root.controller.QuoteTextView
        bare: true
        margin: 0
        horizontalAlignment: TextEdit.AlignHCenter
        fontFamily: "serif"
        fontSize: 26
        focus: true
    }
}
