import QtQuick
import QtQuick.Layouts
import Lantern

/** The form of a new quote. */
QuoteFormPage {
    id: root

    required property AddViewController controller

    onBackgroundTapped: controller.dismissKeyboard()

    quote: FormTextArea {
        Layout.fillWidth: true
        Layout.fillHeight: !root.roomy
        Layout.preferredHeight: Math.max(240, Math.min(fullHeight, root.height - 250))
        Layout.minimumHeight: 160
        control: root.controller.QuoteTextView
    }

    fields: [
        NamedField {
            control: root.controller.SourceTextField
            listButton: root.controller.SourcesButton
        },
        NamedField {
            control: root.controller.CategoryTextField
            listButton: root.controller.TopicButton
        },
        NamedField {
            control: root.controller.AuthorTextField
            listButton: root.controller.AuthorsButton
        },
        FormField {
            Layout.fillWidth: true
            control: root.controller.DateAddedTextField
        }
    ]
}
