import QtQuick
import QtQuick.Layouts
import Lantern

/** The settings. */
FormPage {
    id: root

    required property DefaultsViewController controller

    onBackgroundTapped: controller.dismissKeyboard()

    SwitchRow {
        Layout.fillWidth: true
        control: root.controller.DefaultDateSwitch
        text: control.accessibilityLabel
    }

    FormField {
        Layout.fillWidth: true
        control: root.controller.DefaultDateTextField
        readOnly: true
    }

    FormField {
        Layout.fillWidth: true
        control: root.controller.dateTextField
    }

    LabelView {
        Layout.fillWidth: true
        Layout.topMargin: Theme.margin
        control: root.controller.SelectDPLabel
        font.bold: true
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    SwitchRow {
        Layout.fillWidth: true
        control: root.controller.DateWheelSwitch
        text: root.controller.UseDateWheelLabel.text
    }

    SwitchRow {
        Layout.fillWidth: true
        control: root.controller.DateInlineSwitch
        text: root.controller.UseInlineDateLabel.text
    }

    SwitchRow {
        Layout.fillWidth: true
        control: root.controller.DateCompactSwitch
        text: root.controller.UseCompactDateLabel.text
    }

    Item {
        Layout.fillHeight: true
    }
}
