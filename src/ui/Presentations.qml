import QtQuick
import Lantern

/** Shows what the screens present over the whole window. */
Item {
    id: root

    required property ViewController presenter

    readonly property ViewController presented: presenter?.presentedViewController ?? null
    readonly property DocumentPickerViewController documentPicker: presented as DocumentPickerViewController

    onPresentedChanged: Editing.presenting = presented !== null

    AlertSheet {
        alert: root.presented as AlertController
    }

    ShareSheet {
        activity: root.presented as ActivityViewController
    }

    FileSheet {
        picker: FileChooser.native ? null : root.documentPicker
    }

    // Its library is not loaded before there is a file to choose.
    Loader {
        active: FileChooser.native && root.documentPicker !== null
        source: "NativeFileDialog.qml"
        onLoaded: (item as NativeFileDialog).picker = root.documentPicker
    }
}
