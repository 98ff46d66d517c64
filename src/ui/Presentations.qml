pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** Shows what the screens present over the whole window, and the work that they wait for. */
Item {
    id: root

    required property ViewController presenter
    required property LongWork work

    readonly property ViewController presented: presenter?.presentedViewController ?? null
    readonly property AlertController alert: presented as AlertController
    readonly property ActivityViewController activity: presented as ActivityViewController
    readonly property DocumentPickerViewController documentPicker: presented as DocumentPickerViewController

    /** Nothing below takes input. */
    readonly property bool presents: presented !== null || isWorking
    readonly property bool isWorking: (work?.title ?? "") !== ""

    onPresentsChanged: Editing.presenting = presents

    LateItem {
        needed: root.alert !== null

        AlertSheet {
            alert: root.alert
        }
    }

    LateItem {
        needed: root.activity !== null

        ShareSheet {
            activity: root.activity
        }
    }

    LateItem {
        needed: !FileChooser.native && root.documentPicker !== null

        FileSheet {
            picker: FileChooser.native ? null : root.documentPicker
        }
    }

    LateItem {
        needed: root.isWorking

        LongWorkSheet {
            work: root.work
        }
    }

    // Its library is not loaded before there is a file to choose.
    Loader {
        active: FileChooser.native && root.documentPicker !== null
        source: "NativeFileDialog.qml"
        onLoaded: (item as NativeFileDialog).picker = root.documentPicker
    }
}
