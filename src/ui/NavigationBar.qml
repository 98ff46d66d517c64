pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** The way back, the title or the view in its place, and the bar buttons of the top screen. A
 * title view that finds no room between the buttons stands below them. */
Item {
    id: root

    required property NavigationController controller

    readonly property NavigationItem navigationItem: controller.topViewController.navigationItem
    readonly property ToolkitSegmentedControl segments: navigationItem.titleView as ToolkitSegmentedControl
    readonly property real leftWidth: (back.visible ? back.width : 0) + Theme.gap
    readonly property real rightWidth: buttons.width + Theme.gap
    readonly property real sideWidth: Math.max(leftWidth, rightWidth)
    readonly property real titleViewWidth: titleViews.count > 0 ? titleViews.itemAt(0).implicitWidth : 0
    readonly property bool stacked: segments !== null && titleViewWidth > width - 2 * sideWidth

    implicitHeight: Theme.barHeight + (stacked ? Theme.touchTarget + 4 : 0)
    height: controller.navigationBarHidden ? 0 : implicitHeight
    enabled: !controller.navigationBarHidden
    visible: height > 0
    clip: true

    Behavior on height {
        NumberAnimation {
            duration: Theme.slideDuration
            easing.type: Easing.OutCubic
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.paper

        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Theme.line
        }
    }

    BackButton {
        id: back

        readonly property BarButtonItem own: root.navigationItem.backBarButtonItem

        x: 4
        y: (Theme.barHeight - height) / 2
        visible: root.controller.depth > 1 || own !== null
        text: root.controller.depth > 1 || own === null ? qsTr("Back") : own.title
        onClicked: root.controller.goBack()
    }

    // What a screen reader tells, even where the title finds no room.
    Item {
        width: root.width
        height: Theme.barHeight
        visible: root.navigationItem.titleView === null
        Accessible.role: Accessible.Heading
        Accessible.name: root.navigationItem.title

        PlainText {
            readonly property bool centered: implicitWidth <= root.width - 2 * root.sideWidth

            x: centered ? root.sideWidth : root.leftWidth
            width: root.width - (centered ? 2 * root.sideWidth : root.leftWidth + root.rightWidth)
            height: Theme.barHeight
            // A title of which no letter fits is better not begun.
            visible: width >= implicitWidth || width >= Theme.touchTarget
            text: root.navigationItem.title
            font.bold: true
            elide: Text.ElideRight
            wrapMode: Text.NoWrap
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
    }

    Repeater {
        id: titleViews

        model: root.segments !== null ? [root.segments] : []

        SegmentedView {
            required property QtObject modelData

            x: (root.width - width) / 2
            y: root.stacked ? Theme.barHeight - 4 : (Theme.barHeight - height) / 2
            width: Math.min(root.stacked ? root.width - 2 * Theme.margin
                                         : root.width - 2 * root.sideWidth, 360)
            control: modelData as ToolkitSegmentedControl
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 4
        y: (Theme.barHeight - height) / 2

        ObjectRepeater {
            objects: root.navigationItem.rightBarButtonItems

            TextButton {
                required property QtObject modelData
                readonly property BarButtonItem item: modelData as BarButtonItem

                enabled: item.enabled
                text: item.title
                symbol: item.image
                onClicked: item.press()
            }
        }
    }
}
