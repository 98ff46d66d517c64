pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lantern

/** Screens side by side, each a stack of its own, chosen by a bar at the bottom. */
FocusScope {
    id: root

    required property TabBarController controller

    StackLayout {
        anchors.top: parent.top
        anchors.bottom: bar.top
        width: parent.width
        currentIndex: root.controller.selectedIndex

        Repeater {
            model: root.controller.titles.length

            NavigationView {
                required property int index

                controller: root.controller.viewControllerAt(index)
                focus: index === root.controller.selectedIndex
            }
        }
    }

    Rectangle {
        id: bar

        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.barHeight
        color: Theme.bar
        Accessible.role: Accessible.PageTabList
        Accessible.name: qsTr("Tabs")

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.line
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, Theme.readableWidth)
            height: parent.height

            Repeater {
                model: root.controller.titles

                TextButton {
                    required property int index
                    required property string modelData

                    width: parent.width / root.controller.titles.length
                    height: parent.height
                    text: modelData
                    bold: index === root.controller.selectedIndex
                    tint: bold ? Theme.accent : Theme.faintInk
                    Accessible.role: Accessible.PageTab
                    Accessible.selected: bold
                    onClicked: root.controller.choose(index)
                }
            }
        }
    }
}
