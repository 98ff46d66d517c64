import QtQuick
import QtQuick.Layouts
import Lantern

/** A screen that is not there yet: its title, and that. */
FormPage {
    id: root

    required property PlainViewController controller

    PlainText {
        Layout.fillWidth: true
        Layout.topMargin: 4 * Theme.margin
        text: root.controller.navigationItem.title
        font.pixelSize: Theme.titleFont
        font.bold: true
        horizontalAlignment: Text.AlignHCenter
    }

    PlainText {
        Layout.fillWidth: true
        text: qsTr("This screen is not there yet.")
        color: Theme.faintInk
        horizontalAlignment: Text.AlignHCenter
    }

    Item {
        Layout.fillHeight: true
    }
}
