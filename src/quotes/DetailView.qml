import QtQuick
import QtQuick.Layouts
import Lantern

/** One quote with its fields, at the size in which it is read. */
FormPage {
    id: root

    required property DetailViewController controller

    onBackgroundTapped: controller.dismissKeyboard()

    NamedField {
        control: root.controller.SourceTextField
        listButton: root.controller.SourceButton
    }

    NamedField {
        control: root.controller.CategoryTextField
        listButton: root.controller.TopicButton
    }

    NamedField {
        control: root.controller.AuthorTextField
        listButton: root.controller.AuthorButton
    }

    FormField {
        Layout.fillWidth: true
        control: root.controller.DateAddedTextField
    }

    FormTextArea {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.minimumHeight: 180
        control: root.controller.QuoteTextView
        fontFamily: root.controller.QuoteTextView.fontFamily
        fontSize: root.controller.QuoteTextView.fontSize
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.gap

        SymbolButton {
            control: root.controller.DecreaseFontSize
            symbol: "A"
            symbolSize: Theme.captionFont
        }

        SymbolButton {
            control: root.controller.IncreaseFontSize
            symbol: "A"
            symbolSize: Theme.titleFont
        }

        StepperView {
            control: root.controller.FontStepper
        }

        FormField {
            Layout.fillWidth: true
            control: root.controller.FontSizeTextField
            named: false
            readOnly: true
        }
    }

    PushButton {
        Layout.fillWidth: true
        control: root.controller.FullScreenButton
    }
}
