import QtQuick
import QtQuick.Dialogs
import Lantern

/** Shows what the screens present over the whole window. */
Item {
    id: root

    required property ViewController presenter

    readonly property ViewController presented: presenter?.presentedViewController ?? null
    readonly property DocumentPickerViewController documentPicker: presented as DocumentPickerViewController

    onDocumentPickerChanged: {
        if (documentPicker !== null && FileChooser.native)
            fileDialog.open();
        else
            fileDialog.close();
    }

    AlertSheet {
        alert: root.presented as AlertController
    }

    ShareSheet {
        activity: root.presented as ActivityViewController
    }

    FileSheet {
        picker: FileChooser.native ? null : root.documentPicker
    }

    FileDialog {
        id: fileDialog

        onAccepted: root.documentPicker?.pick(selectedFile)
        onRejected: root.documentPicker?.cancel()
    }
}
