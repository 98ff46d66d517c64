import QtQuick
import Lantern

/** A text to read, of which the user may select and copy parts. */
TextEdit {
    id: root

    required property string name

    function copyAll(): void {
        selectAll();
        copy();
    }

    color: Theme.ink
    font.pixelSize: Theme.secondaryFont
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
    readOnly: true
    selectByMouse: true
    persistentSelection: true
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    activeFocusOnTab: true
    Accessible.role: Accessible.EditableText
    Accessible.name: name
    Accessible.readOnly: true
    Accessible.multiLine: true
    Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    TextMenuArea {
        field: root
    }

    FocusRing {
        radius: 4
        shown: root.activeFocus
    }
}
