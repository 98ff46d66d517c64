import QtQuick

/** Makes its content when that is first needed, and keeps it, so that the start does not wait for
 * it. */
Item {
    id: root

    default required property Component content

    property bool needed: false
    property QtObject item: null

    onNeededChanged: if (needed && item === null)
        item = content.createObject(root)
}
