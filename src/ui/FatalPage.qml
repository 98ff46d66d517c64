pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** What ended the program, and the ways to go on. Stands over all else in the window, which the
 * user no longer reaches. */
FocusScope {
    id: root

    required property string message

    /** What is true of the end: what is kept, and what is not. */
    property string kept

    /** The day of a backup that can be restored; nothing where there is none. */
    property string backupDay
    property bool offersRescue: false

    /** "quit", "again", "restore" or "rescue". */
    property string choice: "quit"

    signal chosen

    function choose(what: string) {
        choice = what;
        chosen();
    }

    parent: T.Overlay.overlay
    anchors.fill: parent
    z: 1
    Keys.onEscapePressed: root.choose("quit")
    onVisibleChanged: if (visible)
        again.forceActiveFocus(Qt.TabFocusReason)

    Rectangle {
        anchors.fill: parent
        color: Theme.paper
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 4 * Theme.margin, Theme.readableWidth)
        spacing: Theme.margin
        Accessible.role: Accessible.AlertMessage
        Accessible.name: heading.text
        Accessible.description: root.message

        PlainText {
            id: heading

            width: parent.width
            text: qsTr("Lantern has to stop")
            font.pixelSize: Theme.titleFont
            font.bold: true
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Flickable {
            id: page

            width: parent.width
            height: Math.min(contentHeight, root.height / 2)
            contentWidth: width
            contentHeight: reason.height
            boundsBehavior: Flickable.StopAtBounds
            clip: true

            T.ScrollBar.vertical: PageScrollBar {}

            ReadOnlyText {
                id: reason

                width: page.width
                text: root.message
                name: qsTr("Reason")
                horizontalAlignment: TextEdit.AlignHCenter
            }
        }

        PlainText {
            width: parent.width
            visible: text !== ""
            text: root.kept
            color: Theme.faintInk
            font.pixelSize: Theme.secondaryFont
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        TextButton {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.backupDay !== ""
            text: qsTr("Restore the backup of %1").arg(root.backupDay)
            onClicked: root.choose("restore")
        }

        TextButton {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.offersRescue
            text: qsTr("Rescue what can be read")
            onClicked: root.choose("rescue")
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.margin

            TextButton {
                id: again

                text: qsTr("Start again")
                bold: true
                focus: true
                onClicked: root.choose("again")
            }

            TextButton {
                text: qsTr("Copy")
                Accessible.description: qsTr("Copies the reason")
                onClicked: reason.copyAll()
            }

            TextButton {
                text: qsTr("Quit")
                onClicked: root.choose("quit")
            }
        }
    }
}
