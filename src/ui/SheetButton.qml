import QtQuick
import Lantern

/** A full-width choice of a sheet. */
TextButton {
    implicitHeight: 50

    background: Rectangle {
        radius: 10
        color: Theme.surface
    }
}
