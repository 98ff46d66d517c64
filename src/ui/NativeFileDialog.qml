import QtQuick
import QtQuick.Dialogs
import Lantern

/** The desktop's own dialog, open for as long as this lives. */
Item {
    id: root

    property DocumentPickerViewController picker

    Component.onCompleted: dialog.open()
    Component.onDestruction: dialog.close()

    FileDialog {
        id: dialog

        onAccepted: root.picker?.pick(selectedFile)
        onRejected: root.picker?.cancel()
    }
}
