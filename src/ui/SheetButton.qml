import QtQuick
import Lantern

/** A full-width choice of a sheet, with its symbol before it. */
TextButton {
    id: root

    readonly property var symbols: ({
        [qsTr("Copy")]: "copy",
        [qsTr("Message")]: "bubble",
        [qsTr("Mail")]: "envelope",
        [qsTr("Print")]: "printer",
        [qsTr("Save to Files")]: "folder"
    })

    implicitHeight: Math.max(50, Theme.controlHeight)
    tint: Theme.ink
    leftPadding: mark.width + 12

    Symbol {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        name: root.symbols[root.text] ?? ""
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.line
    }

    Binding {
        target: root.contentItem
        property: "horizontalAlignment"
        value: Text.AlignLeft
    }
}
