import QtQuick
import QtQuick.Layouts
import Lantern

/** A field, and the button that opens the list of its names. */
RowLayout {
    id: root

    required property ToolkitTextField control
    required property ToolkitButton listButton

    Layout.fillWidth: true
    spacing: Theme.gap

    FormField {
        Layout.fillWidth: true
        control: root.control
    }

    PushButton {
        Layout.alignment: Qt.AlignBottom
        Layout.preferredWidth: Theme.scaled(104)
        font.pixelSize: Theme.secondaryFont
        leftPadding: Theme.gap
        rightPadding: Theme.gap
        control: root.listButton
    }
}
