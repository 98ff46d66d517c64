import QtQuick

/** Loads an item or a sheet when it is first needed, and keeps it: a start waits for none of their
 * files. */
Item {
    id: root

    required property string file
    property bool needed: false
    property QtObject item: null

    /** Its properties can be bound. */
    signal made

    onNeededChanged: {
        if (!needed || item !== null)
            return;
        item = Qt.createComponent(file).createObject(root);
        made();
    }
}
