pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** The button that shows and hides the options, always at the bottom, and the options in groups
 * above it. What room they leave the lamp has. */
FocusScope {
    id: root

    required property MainMenuViewController controller

    readonly property list<string> symbols: ["list", "group", "tag", "pencil", "bookmark", "books",
                                             "import", "export", "star", "sliders"]
    /** The options that begin a group, after the first. */
    readonly property list<int> groups: [3, 4, 6, 8]
    readonly property bool unfolded: !((controller.menuOptionsButton[0] as ToolkitButton)?.hidden ?? true)
    /** How many options stand in a column. */
    readonly property int perColumn: width >= 600 ? 5 : 10

    function rowTop(index: int): real {
        const first = index - index % perColumn;
        const gaps = groups.filter(group => group > first && group <= index).length;
        return (index - first) * (Theme.controlHeight + Theme.gap) + gaps * Theme.gap;
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.paper
    }

    Item {
        id: place

        width: parent.width
        height: root.unfolded ? page.topMargin : page.height

        Canvas {
            anchors.centerIn: lamp
            width: 96
            height: 96
            scale: 6
            visible: !root.unfolded && lamp.visible
            onPaint: {
                const context = getContext("2d");
                const glow = context.createRadialGradient(48, 48, 0, 48, 48, 48);
                for (let part = 0; part <= 1; part += 0.125)
                    glow.addColorStop(part, Qt.alpha(Theme.lamp, 0.3 * (1 - part) * (1 - part)));
                context.reset();
                context.fillStyle = glow;
                context.fillRect(0, 0, 96, 96);
            }

            NumberAnimation on opacity {
                from: 0
                to: 1
                duration: Theme.reducedMotion ? 100 : 600
            }
        }

        LampMark {
            id: lamp

            anchors.centerIn: parent
            width: Math.min(root.unfolded ? 64 : 120, parent.height - 2 * Theme.gap)
            visible: width >= 32
        }
    }

    Flickable {
        id: page

        width: parent.width
        height: parent.height - menu.height - 2 * menu.anchors.bottomMargin
        contentHeight: options.height
        topMargin: Math.max(0, height - contentHeight)
        contentY: -topMargin
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        clip: true

        T.ScrollBar.vertical: PageScrollBar {
            visible: root.unfolded && size < 1
        }

        Item {
            id: options

            x: (page.width - width) / 2
            width: menu.width
            height: root.rowTop(root.perColumn - 1) + Theme.controlHeight + Theme.gap / 2

            ObjectRepeater {
                objects: root.controller.menuOptionsButton

                PushButton {
                    required property int index
                    required property QtObject modelData

                    readonly property int columns: 10 / root.perColumn

                    x: index < root.perColumn ? 0 : options.width - width
                    y: root.rowTop(index)
                    width: (options.width - (columns - 1) * Theme.margin) / columns
                    height: Theme.controlHeight
                    control: modelData as ToolkitButton
                    symbol: root.symbols[index] ?? ""
                }
            }
        }
    }

    PushButton {
        id: menu

        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.height < 500 ? Theme.gap : Theme.margin
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width - 2 * Theme.margin, root.perColumn < 10 ? Theme.formWidth : 480)
        height: Math.max(root.height < 500 ? Theme.touchTarget : 52, Theme.controlHeight)
        control: root.controller.menuButton
        focus: true
    }
}
