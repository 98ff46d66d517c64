import QtQuick
import Lantern

/** A sign that steps through a calendar; it is spoken by its name. */
TextButton {
    property string name

    text: name
    Accessible.name: name
}
