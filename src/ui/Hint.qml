import QtQuick
import QtQuick.Templates as T
import Lantern

/** What a control or a cut-off text says, beside the mouse that rests on it. */
T.ToolTip {
    id: root

    property bool shown: false

    visible: shown && text !== ""
    delay: 700
    timeout: 8000
    x: ((parent?.width ?? 0) - width) / 2
    y: (parent?.height ?? 0) + 4
    width: Math.min(implicitWidth, 340)
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 4
    padding: Theme.gap
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
                 | T.Popup.CloseOnReleaseOutsideParent

    background: Rectangle {
        radius: 5
        color: Theme.ink
    }

    contentItem: PlainText {
        text: root.text
        color: Theme.paper
        font.pixelSize: Theme.captionFont
        Accessible.ignored: true
    }
}
