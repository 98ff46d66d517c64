pragma Singleton

import QtQuick
import Lantern

/** Which text input is being edited, in which field, and how much of the window's bottom its input
 * view covers. */
QtObject {
    property ToolkitTextInput input: null
    property Item field: null
    /** Is told how much of the window the input views cover. */
    property Keyboard keyboard: null
    /** What holds the input views, once a field has been edited. */
    property Item sheet: null
    property real sheetHeight: 0
    /** How much of it the offer to undo covers. */
    property real undoHeight: 0
    property bool sheetOpen: false

    /** Whether an alert or a sheet stands over the screens. */
    property bool presenting: false

    /** The user turns the input view by so many steps, from the field. */
    signal turned(steps: int)
    /** The user wants the menu of a text, at a place in it. */
    signal menuAsked(field: Item, place: point)

    /** The user goes from the field into the sheet. */
    signal entered
}
