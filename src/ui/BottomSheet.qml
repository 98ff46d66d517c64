import QtQuick
import QtQuick.Templates as T
import Lantern

/** A sheet that comes up from the window's bottom over the dimmed screen. Escape and a tap outside
 * close it. */
T.Popup {
    id: root

    /** From 0, below the window, to 1. */
    property real shown: 1

    parent: T.Overlay.overlay
    x: ((parent?.width ?? 0) - width) / 2
    y: (parent?.height ?? 0) - shown * height
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    T.Overlay.modal: Rectangle {
        color: Theme.scrim

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.fadeDuration
            }
        }
    }

    enter: Transition {
        NumberAnimation {
            property: "shown"
            from: 0
            to: 1
            duration: Theme.slideDuration
            easing.type: Easing.OutCubic
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "shown"
            to: 0
            duration: Theme.slideDuration
            easing.type: Easing.OutCubic
        }
    }

    background: Rectangle {
        radius: Theme.sheetRadius
        color: Theme.surface
        border.width: Theme.highContrast ? 2 : 0
        border.color: Theme.ink
    }
}
