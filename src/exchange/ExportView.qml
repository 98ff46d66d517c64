import QtQuick
import QtQuick.Layouts
import Lantern

/** Three buttons, how far the export is, its text and how to go about it. */
FormPage {
    id: root

    required property ExportViewController controller

    PushButton {
        Layout.fillWidth: true
        control: root.controller.ExportButton
        focus: true
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.gap

        PushButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            control: root.controller.SaveButton
        }

        PushButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            control: root.controller.EmailButton
        }
    }

    ProgressBarView {
        Layout.fillWidth: true
        control: root.controller.ProgressView
    }

    LinesView {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.minimumHeight: 140
        control: root.controller.ExportTextView

        ActivityIndicator {
            anchors.centerIn: parent
            control: root.controller.activityIndicator
        }
    }

    HelpText {
        Layout.fillWidth: true
        Layout.topMargin: Theme.gap
        control: root.controller.HelpTextView
    }
}
