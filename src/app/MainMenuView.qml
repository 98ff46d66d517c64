pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lantern

/** The button that shows and hides the options, and the options in a column below it. */
FormPage {
    id: root

    required property MainMenuViewController controller

    spacing: 0

    PlainText {
        Layout.alignment: Qt.AlignHCenter
        Layout.preferredHeight: 72
        verticalAlignment: Text.AlignTop
        text: "\u201c\u201d"
        color: Theme.accent
        opacity: 0.5
        font.family: "serif"
        font.pixelSize: 88
        Accessible.ignored: true
    }

    PushButton {
        Layout.fillWidth: true
        Layout.bottomMargin: Theme.margin
        control: root.controller.menuButton
        focus: true
    }

    ObjectRepeater {
        objects: root.controller.menuOptionsButton

        Item {
            id: place

            required property QtObject modelData

            Layout.fillWidth: true
            Layout.preferredHeight: (option.implicitHeight + Theme.gap) * option.shown

            PushButton {
                id: option

                width: parent.width
                control: place.modelData as ToolkitButton
            }
        }
    }

    Item {
        Layout.fillHeight: true
    }
}
