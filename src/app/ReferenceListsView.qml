import QtQuick
import QtQuick.Layouts
import Lantern

/** Three buttons in a column. */
FormPage {
    id: root

    required property ReferenceListsViewController controller

    PushButton {
        Layout.fillWidth: true
        control: root.controller.AuthorsButton
        focus: true
    }

    PushButton {
        Layout.fillWidth: true
        control: root.controller.SourcesButton
    }

    PushButton {
        Layout.fillWidth: true
        control: root.controller.TopicsButton
    }

    Item {
        Layout.fillHeight: true
    }
}
