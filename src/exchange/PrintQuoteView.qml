import QtQuick
import QtQuick.Layouts
import Lantern

/** Three buttons and the text of a group of quotes. */
FormPage {
    id: root

    required property PrintQuoteViewController controller

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.gap

        PushButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 4
            control: root.controller.CreateFileButton
            focus: true
        }

        PushButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 3
            control: root.controller.PrintButton
        }

        PushButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 3
            control: root.controller.EmailButton
        }
    }

    LinesView {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.minimumHeight: 140
        control: root.controller.FileTextView
    }
}
