pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** The way back, the title or the view in its place, and the bar buttons of the top screen. A
 * title view that finds no room between the buttons stands below them. */
Item {
    id: root

    required property NavigationController controller

    /** The screen below wants the bar out of the way. */
    property bool away: false

    /** Takes what a press does in the pane of a list that led to the top screen; else null. */
    property Gate gate: null
    /** Whether the bar is that of the pane beside such a list. */
    property bool beside: false

    function act(action: var): void {
        if (gate !== null)
            gate.asked(action);
        else
            action();
    }

    property NavigationItem navigationItem: controller.topViewController.navigationItem
    readonly property ToolkitSegmentedControl segments: navigationItem.titleView as ToolkitSegmentedControl
    readonly property var items: navigationItem.rightBarButtonItems
    /** The symbols of the words that have one. Saving is always said. */
    readonly property var symbols: ({
        [qsTr("Sort")]: "arrow.up.arrow.down",
        [qsTr("Share")]: "share",
        [qsTr("Print")]: "printer",
        [qsTr("Add")]: "plus",
        [qsTr("Names")]: "list"
    })

    readonly property real lineHeight: Window.height < 500 ? Math.max(44, Theme.scaled(40)) : Theme.barHeight
    readonly property real leftWidth: (back.visible ? back.width : 0) + Theme.gap
    readonly property real rightWidth: buttons.width + Theme.gap
    readonly property real sideWidth: Math.max(leftWidth, rightWidth)
    readonly property real middleWidth: segments !== null ? titleViewWidth : titleWidth.width + Theme.gap
    readonly property real titleViewWidth: titleViews.count > 0 ? titleViews.itemAt(0).implicitWidth : 0

    /** How wide the buttons are, in words or in symbols where there are any. */
    readonly property real wordsWidth: items.reduce((width, item) => width + widthOf(item, true), 0)
    readonly property real symbolsWidth: items.reduce((width, item) => width + widthOf(item, false), 0)
    readonly property real room: width - leftWidth - middleWidth - Theme.gap
    readonly property bool worded: wordsWidth <= room || (segments !== null && symbolsWidth > room)
    readonly property bool stacked: segments !== null && symbolsWidth > room
    readonly property string prompt: navigationItem.prompt

    function symbolOf(item: BarButtonItem, inWords: bool): string {
        return item.image !== "" ? item.image : inWords ? "" : symbols[item.title] ?? "";
    }

    function widthOf(item: BarButtonItem, inWords: bool): real {
        return symbolOf(item, inWords) !== "" ? Theme.touchTarget
             : Math.max(Theme.touchTarget, words.advanceWidth(item.title) + 2 * Theme.gap);
    }

    implicitHeight: lineHeight + (stacked ? Theme.touchTarget + 4 : 0)
                    + (prompt !== "" ? promptLine.height : 0)
    height: (controller?.navigationBarHidden ?? true) || away ? 0 : implicitHeight
    enabled: !(controller?.navigationBarHidden ?? true) && !away
    visible: height > 0
    clip: true

    FontMetrics {
        id: words

        font.pixelSize: Theme.bodyFont
        font.bold: true
    }

    TextMetrics {
        id: titleWidth

        font: words.font
        text: root.navigationItem.title
    }

    Behavior on height {
        NumberAnimation {
            duration: Theme.slideDuration
            easing.type: Easing.OutCubic
        }
    }

    Rectangle {
        anchors.fill: parent
        color: root.gate !== null ? Theme.side : Theme.paper

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
        y: (root.lineHeight - height) / 2
        visible: root.gate === null && ((root.controller?.depth ?? 0) > 1 || own !== null)
        text: (root.controller?.depth ?? 0) > 1 || own === null ? qsTr("Back") : own.title
        worded: !root.beside && root.width >= 360 * Theme.textScale
        onClicked: root.controller.goBack()
    }

    // What a screen reader tells, even where the title finds no room.
    Item {
        width: root.width
        height: root.lineHeight
        visible: root.navigationItem.titleView === null || root.prompt !== ""
        Accessible.role: Accessible.Heading
        Accessible.name: root.navigationItem.title || root.prompt

        PlainText {
            readonly property bool centered: implicitWidth <= root.width - 2 * root.sideWidth

            x: centered ? root.sideWidth : root.leftWidth
            width: root.width - (centered ? 2 * root.sideWidth : root.leftWidth + root.rightWidth)
            height: root.lineHeight
            // A title of which no letter fits is better not begun.
            visible: width >= Math.min(implicitWidth, 2 * Theme.touchTarget)
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

            // In the middle of the bar, else of what is left of it.
            readonly property real free: root.width - root.leftWidth - root.rightWidth
            readonly property bool centered: root.stacked || implicitWidth <= root.width - 2 * root.sideWidth

            x: centered ? (root.width - width) / 2 : root.leftWidth + (free - width) / 2
            y: root.stacked ? root.lineHeight - 4 : (root.lineHeight - height) / 2
            width: Math.min(root.stacked ? root.width - 2 * Theme.margin
                            : centered ? root.width - 2 * root.sideWidth : free, 360)
            control: modelData as ToolkitSegmentedControl
            gate: root.gate
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 4
        y: (root.lineHeight - height) / 2

        ObjectRepeater {
            objects: root.navigationItem.rightBarButtonItems

            TextButton {
                required property QtObject modelData
                readonly property BarButtonItem item: modelData as BarButtonItem

                enabled: item.enabled
                text: item.title
                bold: text === qsTr("Save")
                symbol: root.symbolOf(item, root.worded)
                onClicked: {
                    // The button may have gone when it is known that it may act.
                    const pressed = item;
                    root.act(() => pressed.press());
                }
            }
        }
    }

    PlainText {
        id: promptLine

        anchors.bottom: parent.bottom
        x: Theme.margin
        width: parent.width - 2 * x
        bottomPadding: Theme.gap
        visible: text !== ""
        text: root.prompt
        font.bold: true
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        horizontalAlignment: Text.AlignHCenter
        Accessible.ignored: true
    }
}
