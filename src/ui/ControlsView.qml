pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lantern

/** A screen that is its fields, one below the other, and its buttons below them. */
FormPage {
    id: root

    required property ViewController controller

    onBackgroundTapped: controller.touchesBegan()

    ObjectRepeater {
        objects: root.controller.textFields

        FormField {
            required property int index
            required property QtObject modelData

            Layout.fillWidth: true
            control: modelData as ToolkitTextField
            focus: index === 0
        }
    }

    ObjectRepeater {
        objects: root.controller.buttons

        PushButton {
            required property QtObject modelData

            Layout.fillWidth: true
            control: modelData as ToolkitButton
        }
    }

    Item {
        Layout.fillHeight: true
    }
}
