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
        file: "AlertSheet.qml"
        needed: root.alert !== null
        onMade: (item as AlertSheet).alert = Qt.binding(() => root.alert)
    }

    LateItem {
        file: "ShareSheet.qml"
        needed: root.activity !== null
        onMade: (item as ShareSheet).activity = Qt.binding(() => root.activity)
    }

    LateItem {
        file: "FileSheet.qml"
        needed: !FileChooser.native && root.documentPicker !== null
        onMade: (item as FileSheet).picker = Qt.binding(() => FileChooser.native ? null : root.documentPicker)
    }

    LateItem {
        file: "LongWorkSheet.qml"
        needed: root.isWorking
        onMade: (item as LongWorkSheet).work = Qt.binding(() => root.work)
    }

    // Its library is not loaded before there is a file to choose.
    Loader {
        active: FileChooser.native && root.documentPicker !== null
        source: "NativeFileDialog.qml"
        onLoaded: (item as NativeFileDialog).picker = root.documentPicker
    }
}
