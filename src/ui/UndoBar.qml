import QtQuick
import Lantern

/** What was taken away last, and the way to bring it back; for some seconds, or as long as the user
 * points at it or has the keyboard in it. */
Rectangle {
    id: root

    required property Notes notes

    /** The keyboard was here, and nothing is left to work. */
    signal emptied

    readonly property bool offered: notes.undoable !== ""

    anchors.bottom: parent.bottom
    anchors.bottomMargin: Theme.margin + Editing.sheetHeight
    anchors.horizontalCenter: parent.horizontalCenter
    width: Math.min(parent.width - 2 * Theme.margin, 420)
    height: Math.max(48, label.implicitHeight + Theme.gap)
    radius: 10
    color: Theme.ink
    visible: false
    Accessible.role: Accessible.Notification
    Accessible.name: label.text

    Binding {
        target: Editing
        property: "undoHeight"
        value: root.offered ? root.height + Theme.margin : 0
    }

    Connections {
        target: root.notes

        function onUndoableChanged() {
            if (!root.offered && undo.activeFocus)
                root.emptied();
            root.visible = false;
            label.text = root.notes.undoable;
            root.visible = root.offered;
            Announcer.say(root, label.text);
            if (passing.running)
                passing.restart();
        }
    }

    Timer {
        id: passing

        interval: 6000
        running: root.offered && !pointer.hovered && !undo.activeFocus
        onTriggered: root.notes.endUndo()
    }

    HoverHandler {
        id: pointer
    }

    // A halo, so that rows of the same darkness do not touch it.
    Rectangle {
        anchors.fill: parent
        anchors.margins: -3
        z: -1
        radius: 13
        color: Theme.paper
    }

    PlainText {
        id: label

        anchors.left: parent.left
        anchors.leftMargin: Theme.margin
        anchors.right: undo.left
        height: parent.height
        color: Theme.paper
        font.pixelSize: Theme.secondaryFont
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    TextButton {
        id: undo

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Undo")
        tint: Theme.accentOnInk
        bold: true
        focusPolicy: Qt.TabFocus
        rightPadding: Theme.margin
        onClicked: root.notes.undo()
    }
}
