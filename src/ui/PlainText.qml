import QtQuick
import Lantern

/** Text that is never read as markup. */
Text {
    color: Theme.ink
    font.pixelSize: Theme.bodyFont
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
}
