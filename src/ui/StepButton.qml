import QtQuick
import Lantern

/** A sign that steps through a calendar; it is spoken by its name. */
TextButton {
    property string name

    font.pixelSize: 26
    objectName: name
    Accessible.name: name
}
