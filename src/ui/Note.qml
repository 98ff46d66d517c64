import QtQuick
import Lantern

/** The last note, over all else and above an open sheet, until it can have been read. */
Rectangle {
    id: root

    required property Notes notes

    anchors.bottom: parent.bottom
    anchors.bottomMargin: Editing.sheetHeight + 2 * Theme.margin
    anchors.horizontalCenter: parent.horizontalCenter
    width: label.width
    height: label.height
    radius: Theme.sheetRadius
    color: Theme.ink
    visible: false
    // Screen readers tell a notification that appears.
    Accessible.role: Accessible.Notification
    Accessible.name: label.text

    Connections {
        target: root.notes

        function onSaid(text: string) {
            root.visible = false;
            label.text = text;
            root.visible = true;
            read.interval = 3000 + 60 * text.length;
            read.restart();
        }
    }

    Timer {
        id: read

        onTriggered: root.visible = false
    }

    PlainText {
        id: label

        width: Math.min(implicitWidth, root.parent.width - 4 * Theme.margin)
        padding: Theme.gap
        leftPadding: Theme.margin
        rightPadding: Theme.margin
        color: Theme.paper
        font.pixelSize: Theme.secondaryFont
        horizontalAlignment: Text.AlignHCenter
        objectName: text
        Accessible.ignored: true
    }
}
