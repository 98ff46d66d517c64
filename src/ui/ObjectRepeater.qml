import QtQuick

/** Makes an item for each object of a list. A Repeater over the list itself would never give back
 * some 200 bytes for each item that it made; over an array it gives back all. */
Repeater {
    required property var objects

    model: Array.from(objects)
}
