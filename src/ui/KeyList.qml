pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** The list of keys, over the dimmed screen. */
BottomSheet {
    id: root

    readonly property list<string> keys: [
        "Ctrl+F", qsTr("Search"),
        "Ctrl+N", qsTr("Add"),
        "Ctrl+S", qsTr("Save"),
        "Ctrl+P", qsTr("Print"),
        "Ctrl+E", qsTr("Export"),
        "Ctrl+Z", qsTr("Undo, also what was deleted"),
        "Ctrl+Tab", qsTr("Next tab"),
        "Esc, Alt+Left", qsTr("Back"),
        qsTr("Arrows, Page keys"), qsTr("Move in a list or a text"),
        qsTr("Letters"), qsTr("Come to the row that begins so"),
        qsTr("Return"), qsTr("Open the row; edit the full screen text"),
        qsTr("Delete"), qsTr("Delete the row"),
        "Menu, Shift+F10", qsTr("Menu of the row"),
        "F11", qsTr("Full screen"),
        "F1, Ctrl+?", qsTr("This list"),
        "Ctrl+Q, Ctrl+W", qsTr("Quit")
    ]

    width: Math.min(parent?.width ?? 0, 480)
    padding: Theme.margin
    height: Math.min(title.height + list.contentHeight + 3 * Theme.margin,
                     (parent?.height ?? 0) - 2 * Theme.margin)
    onOpened: list.forceActiveFocus()

    FocusScope {
        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: title.text

        PlainText {
            id: title

            text: qsTr("Keys")
            font.bold: true
            height: Theme.controlHeight
            verticalAlignment: Text.AlignVCenter
        }

        TextButton {
            anchors.right: parent.right
            text: qsTr("Done")
            bold: true
            onClicked: root.close()
        }

        ListView {
            id: list

            anchors.top: title.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            model: root.keys.length / 2
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            activeFocusOnTab: true
            Accessible.role: Accessible.List
            Accessible.name: title.text
            Keys.onUpPressed: flick(0, 600)
            Keys.onDownPressed: flick(0, -600)

            T.ScrollBar.vertical: PageScrollBar {}

            delegate: Item {
                id: line

                required property int index
                readonly property string key: root.keys[2 * index]
                readonly property string meaning: root.keys[2 * index + 1]

                width: list.width
                height: Math.max(meaningText.implicitHeight, keyText.implicitHeight) + Theme.gap
                Accessible.role: Accessible.ListItem
                Accessible.name: key + ": " + meaning

                PlainText {
                    id: keyText

                    width: parent.width * 0.4
                    text: line.key
                    color: Theme.faintInk
                    font.pixelSize: Theme.secondaryFont
                    Accessible.ignored: true
                }

                PlainText {
                    id: meaningText

                    x: parent.width * 0.4 + Theme.gap
                    width: parent.width - x - Theme.margin
                    text: line.meaning
                    font.pixelSize: Theme.secondaryFont
                    Accessible.ignored: true
                }
            }
        }
    }
}
