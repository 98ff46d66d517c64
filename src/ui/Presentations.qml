import QtQuick
import Lantern

/** Shows what the screens present over the whole window, and the work that they wait for. */
Item {
    id: root

    required property ViewController presenter
    required property LongWork work

    readonly property ViewController presented: presenter?.presentedViewController ?? null
    readonly property DocumentPickerViewController documentPicker: presented as DocumentPickerViewController

    /** Nothing below takes input. */
    readonly property bool presents: presented !== null || (work?.title ?? "") !== ""

    onPresentsChanged: Editing.presenting = presents

    AlertSheet {
        alert: root.presented as AlertController
    }

    ShareSheet {
        activity: root.presented as ActivityViewController
    }

    FileSheet {
        picker: FileChooser.native ? null : root.documentPicker
    }

    LongWorkSheet {
        work: root.work
    }

    // Its library is not loaded before there is a file to choose.
    Loader {
        active: FileChooser.native && root.documentPicker !== null
        source: "NativeFileDialog.qml"
        onLoaded: (item as NativeFileDialog).picker = root.documentPicker
    }
}
