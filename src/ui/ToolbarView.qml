pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lantern

/** A row of bar buttons on the toolbar's tint. */
Rectangle {
    id: root

    required property ToolkitToolbar control

    implicitHeight: Math.max(46, Theme.controlHeight)
    color: Qt.tint(Theme.surface, Qt.alpha(Theme.drawn(control.tintColor),
                                           Theme.highContrast && !Theme.dark ? 1 : 0.4))

    radius: Theme.sheetRadius

    // Round above alone.
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: parent.radius
        color: parent.color
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.gap
        anchors.rightMargin: Theme.gap

        ObjectRepeater {
            objects: root.control.items

            TextButton {
                required property QtObject modelData
                readonly property BarButtonItem item: modelData as BarButtonItem

                Layout.fillWidth: item.flexibleSpace
                enabled: !item.flexibleSpace
                tint: Theme.ink
                bold: true
                text: item.title
                Accessible.ignored: item.flexibleSpace
                onClicked: item.press()
            }
        }
    }
}
