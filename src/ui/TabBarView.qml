pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Lantern

/** Screens side by side, each a stack of its own, chosen by a bar at the bottom. */
FocusScope {
    id: root

    required property TabBarController controller

    readonly property var symbols: ({
        [qsTr("Authors")]: "person",
        [qsTr("Sources")]: "book",
        [qsTr("Topics")]: "bookmark"
    })

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
        height: Math.max(58, 24 * Math.min(Theme.textScale, 1.5) + Theme.scaled(18) + 14)
        color: Theme.paper
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

                T.TabButton {
                    id: tab

                    required property int index
                    required property string modelData
                    readonly property bool chosen: index === root.controller.selectedIndex

                    width: parent.width / root.controller.titles.length
                    height: parent.height
                    text: modelData
                    checkable: false
                    Accessible.role: Accessible.PageTab
                    Accessible.name: text
                    Accessible.selectable: true
                    Accessible.selected: chosen
                    Accessible.onPressAction: tab.clicked()
                    onClicked: root.controller.choose(index)
                    Keys.onReturnPressed: tab.clicked()
                    Keys.onEnterPressed: tab.clicked()

                    Symbol {
                        anchors.horizontalCenter: parent.horizontalCenter
                        y: 7
                        name: root.symbols[tab.text] ?? ""
                        tint: tab.chosen ? Theme.accent : Theme.faintInk
                    }

                    background: Rectangle {
                        color: tab.down ? Theme.pressed : "transparent"
                    }

                    bottomPadding: 6
                    contentItem: PlainText {
                        text: tab.text
                        color: tab.chosen ? Theme.accent : Theme.faintInk
                        font.bold: tab.chosen
                        font.pixelSize: Theme.captionFont
                        elide: Text.ElideRight
                        wrapMode: Text.NoWrap
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignBottom
                    }

                    FocusRing {
                        anchors.margins: 2
                        radius: 8
                        shown: tab.visualFocus
                    }
                }
            }
        }
    }
}
