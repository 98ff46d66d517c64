import QtQuick
import Lantern

/** What can be done with a text or a part of it: the menu of every field. */
ActionMenu {
    id: root

    property TextInput line: null
    property TextEdit lines: null

    /** Opens at a place of a field. */
    function openAt(item: Item, place: point): void {
        line = item as TextInput;
        lines = item as TextEdit;
        item.forceActiveFocus(Qt.MouseFocusReason);
        const has = (line?.selectedText ?? lines.selectedText) !== "";
        const changes = !(line?.readOnly ?? lines.readOnly);
        const offers = [];
        if (has && changes)
            offers.push(qsTr("Cut"));
        if (has)
            offers.push(qsTr("Copy"));
        if (changes && (line?.canPaste ?? lines.canPaste))
            offers.push(qsTr("Paste"));
        if ((line?.length ?? lines.length) > 0)
            offers.push(qsTr("Select All"));
        titles = offers;
        if (offers.length > 0)
            popup(item, place.x, place.y);
    }

    onChosen: (row, action) => {
        const field = line ?? lines;
        const commands = {
            [qsTr("Cut")]: () => field.cut(),
            [qsTr("Copy")]: () => field.copy(),
            [qsTr("Paste")]: () => field.paste(),
            [qsTr("Select All")]: () => field.selectAll()
        };
        commands[titles[action]]();
        field.forceActiveFocus();
    }
}
