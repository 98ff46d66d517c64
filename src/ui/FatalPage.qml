import QtQuick
import Lantern

/** What ended the program, and the button that leaves it. */
FocusScope {
    id: root

    required property string message

    signal quit

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

        PlainText {
            width: parent.width
            text: qsTr("Lantern has to stop")
            font.pixelSize: Theme.titleFont
            font.bold: true
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }

        PlainText {
            width: parent.width
            text: root.message
            font.pixelSize: Theme.secondaryFont
            horizontalAlignment: Text.AlignHCenter
            maximumLineCount: 14
            elide: Text.ElideRight
            objectName: text
        }

        PlainText {
            width: parent.width
            text: qsTr("What you have saved is kept.")
            color: Theme.faintInk
            font.pixelSize: Theme.secondaryFont
            horizontalAlignment: Text.AlignHCenter
        }

        TextButton {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Quit")
            bold: true
            focus: true
            onClicked: root.quit()
            Keys.onEscapePressed: root.quit()
        }
    }
}
