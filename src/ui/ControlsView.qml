pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lantern

/** A screen that is its fields and buttons, one below the other. */
FormPage {
    id: root

    required property ViewController controller

    onBackgroundTapped: controller.touchesBegan()

    Repeater {
        model: root.controller.controls

        Loader {
            id: place

            required property int index
            required property QtObject modelData

            Layout.fillWidth: true
            focus: index === 0
            sourceComponent: modelData instanceof ToolkitTextField ? field : button

            Component {
                id: field

                FormField {
                    focus: true
                    control: place.modelData as ToolkitTextField
                }
            }

            Component {
                id: button

                PushButton {
                    focus: true
                    control: place.modelData as ToolkitButton
                }
            }
        }
    }

    Item {
        Layout.fillHeight: true
    }
}
