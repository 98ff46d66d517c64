import QtQuick
import Lantern

/** The last note, over all else and above an open sheet, until it can have been read. */
Rectangle {
    id: root

    required property Notes notes

    anchors.bottom: parent.bottom
    anchors.bottomMargin: Editing.sheetHeight + Editing.undoHeight + Theme.margin
    anchors.horizontalCenter: parent.horizontalCenter
    width: label.width
    height: label.height
    radius: Theme.sheetRadius
    color: Theme.ink
    visible: false
    Accessible.role: Accessible.Notification
    Accessible.name: label.text

    Connections {
        target: root.notes

        function onSaid(text: string) {
            root.visible = false;
            label.text = text;
            root.visible = true;
            Announcer.say(root, text);
            read.interval = 2500 + 60 * Math.max(0, text.length - 10);
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
        Accessible.ignored: true
    }
}
