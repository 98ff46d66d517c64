import QtQuick
import QtQuick.Layouts
import Lantern

/** Two buttons, the loaded file and how to go about it. */
FormPage {
    id: root

    required property ImportViewController controller

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.gap

        PushButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            control: root.controller.LoadFileButton
            focus: true
        }

        PushButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            control: root.controller.ImportButton
        }
    }

    LinesView {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.minimumHeight: 140
        control: root.controller.ImportTextView
    }

    HelpText {
        Layout.fillWidth: true
        Layout.topMargin: Theme.gap
        control: root.controller.HelpTextView
    }
}
