import QtQuick
import QtQuick.Layouts
import Lantern

/** Three buttons and the text of a group of quotes. */
FormPage {
    id: root

    required property PrintQuoteViewController controller

    PushButton {
        Layout.fillWidth: true
        control: root.controller.CreateFileButton
        focus: true
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.gap

        PushButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            control: root.controller.PrintButton
        }

        PushButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
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
