pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** How far long work is, and the way to cancel it. From the work's beginning on, nothing else takes
 * input; what is soon done is not shown. */
T.Popup {
    id: root

    property LongWork work: null

    readonly property bool isRunning: (work?.title ?? "") !== ""

    // The title is gone before the sheet has faded.
    property string title

    onIsRunningChanged: {
        if (isRunning) {
            title = work.title;
            open();
        } else {
            close();
        }
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(340, (parent?.width ?? 340) - 2 * Theme.margin)
    padding: Theme.margin
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose

    T.Overlay.modal: Rectangle {
        color: Theme.scrim
        opacity: root.opacity
    }

    enter: Transition {
        SequentialAnimation {
            PropertyAction {
                property: "opacity"
                value: 0
            }
            PauseAnimation {
                duration: 300
            }
            NumberAnimation {
                property: "opacity"
                to: 1
                duration: Theme.fadeDuration
            }
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.fadeDuration
        }
    }

    background: Rectangle {
        radius: Theme.sheetRadius
        color: Theme.surface
        border.width: 2
        border.color: Theme.edge
    }

    contentItem: Column {
        spacing: Theme.margin
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
        Keys.onEscapePressed: root.work.cancel()

        PlainText {
            width: parent.width
            text: root.title
            font.bold: true
            horizontalAlignment: Text.AlignHCenter
        }

        ProgressLine {
            width: parent.width
            value: root.work?.done ?? 1
            label: root.title
            animated: false
        }

        PlainButton {
            width: parent.width
            text: qsTr("Cancel")
            focus: true
            onClicked: root.work.cancel()
        }
    }
}
