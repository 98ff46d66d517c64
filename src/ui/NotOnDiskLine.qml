import QtQuick
import Lantern

/** A quiet line at the foot of the window, as long as something that was saved is not on disk. */
PlainText {
    visible: text !== ""
    padding: Theme.margin / 2
    color: Theme.faintInk
    font.pixelSize: Theme.secondaryFont
    horizontalAlignment: Text.AlignHCenter
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
}
