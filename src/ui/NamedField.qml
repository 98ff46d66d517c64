import QtQuick
import QtQuick.Layouts
import Lantern

/** A field, and the button that opens the list of its names: beside it where there is room. */
GridLayout {
    id: root

    required property ToolkitTextField control
    required property ToolkitButton listButton

    Layout.fillWidth: true
    columns: Window.width >= Theme.scaled(250) ? 2 : 1
    columnSpacing: Theme.gap
    rowSpacing: Theme.gap

    FormField {
        Layout.fillWidth: true
        control: root.control
    }

    PushButton {
        Layout.alignment: Qt.AlignBottom
        Layout.preferredWidth: Theme.scaled(104)
        Layout.fillWidth: root.columns === 1
        font.pixelSize: Theme.secondaryFont
        leftPadding: Theme.gap
        rightPadding: Theme.gap
        control: root.listButton
    }
}
