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

    PlainText {
        Layout.fillWidth: true
        Layout.topMargin: Theme.gap
        text: root.controller.HelpTextView.text
        color: Theme.faintInk
        font.pixelSize: Theme.secondaryFont
        objectName: root.controller.HelpTextView.accessibilityLabel
        Accessible.role: Accessible.StaticText
        Accessible.name: root.controller.HelpTextView.accessibilityLabel
        Accessible.description: text
    }
}
