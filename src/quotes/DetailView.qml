import QtQuick
import QtQuick.Layouts
import Lantern

/** One quote with its fields, at the size in which it is read. */
QuoteFormPage {
    id: root

    required property DetailViewController controller

    onBackgroundTapped: controller.dismissKeyboard()

    quote: [
        FormTextArea {
            Layout.fillWidth: true
            Layout.fillHeight: !root.roomy
            Layout.preferredHeight: Math.max(240, Math.min(fullHeight, root.height - 250))
            Layout.minimumHeight: 160
            control: root.controller.QuoteTextView
            named: false
            fontFamily: root.controller.QuoteTextView.fontFamily
            fontSize: root.controller.QuoteTextView.fontSize
        },
        Flow {
            Layout.fillWidth: true
            spacing: 6

            Row {
                SymbolButton {
                    control: root.controller.DecreaseFontSize
                    sign: "A"
                    signSize: 13
                }

                SymbolButton {
                    control: root.controller.IncreaseFontSize
                    sign: "A"
                    signSize: 22
                }
            }

            StepperView {
                control: root.controller.FontStepper
            }

            FormField {
                width: Theme.scaled(56)
                control: root.controller.FontSizeTextField
                named: false
                readOnly: true
            }

            PushButton {
                font.pixelSize: Theme.secondaryFont
                width: Math.max(implicitWidth, Math.min(Theme.scaled(160), parent.width - x))
                leftPadding: Theme.gap
                rightPadding: Theme.gap
                control: root.controller.FullScreenButton
            }
        }
    ]

    fields: [
        NamedField {
            control: root.controller.SourceTextField
            listButton: root.controller.SourceButton
        },
        NamedField {
            control: root.controller.CategoryTextField
            listButton: root.controller.TopicButton
        },
        NamedField {
            control: root.controller.AuthorTextField
            listButton: root.controller.AuthorButton
        },
        FormField {
            Layout.fillWidth: true
            control: root.controller.DateAddedTextField
        }
    ]
}
