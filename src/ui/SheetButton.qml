import QtQuick
import Lantern

/** A full-width choice of a sheet. */
TextButton {
    implicitHeight: Math.max(50, Theme.controlHeight)

    background: Rectangle {
        radius: 10
        color: Theme.surface
    }
}
