pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Lantern

/** Titles side by side, of which one is selected. */
FocusScope {
    id: root

    required property ToolkitSegmentedControl control

    /** Takes what a press does, where that has to wait; else null. */
    property Gate gate: null

    function choose(index: int): void {
        if (gate !== null)
            gate.asked(() => control.choose(index));
        else
            control.choose(index);
    }

    readonly property real inset: (height - Math.max(34, Theme.scaled(30))) / 2

    /** Wide enough for the longest title in each. */
    implicitWidth: control.items.length * (2 * Theme.gap + Array.from(control.items).reduce(
        (width, title) => Math.max(width, titles.advanceWidth(title)), 0))
    implicitHeight: Theme.touchTarget
    Accessible.role: Accessible.PageTabList
    Accessible.name: control.accessibilityLabel || qsTr("Order")

    Rectangle {
        anchors.fill: row
        anchors.topMargin: root.inset
        anchors.bottomMargin: root.inset
        radius: Theme.buttonRadius
        color: Qt.alpha(Theme.drawn(root.control.tintColor), Theme.dark ? 0.16 : 0.08)
        border.width: Theme.highContrast ? 1 : 0
        border.color: Theme.ink
    }

    FontMetrics {
        id: titles

        font.pixelSize: Theme.secondaryFont
        font.bold: true
    }

    RowLayout {
        id: row

        anchors.fill: parent
        spacing: 0

        Repeater {
            id: segments

            model: root.control.items

            T.TabButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool selected: root.control.selectedIndex === index

                function goTo(neighbour: int): void {
                    const item = segments.itemAt(neighbour);
                    if (item !== null) {
                        item.forceActiveFocus(Qt.TabFocusReason);
                        root.choose(neighbour);
                    }
                }

                Layout.fillWidth: true
                Layout.preferredWidth: 1
                implicitWidth: implicitContentWidth + 2 * Theme.gap
                implicitHeight: Theme.touchTarget
                text: modelData
                focus: selected
                checkable: false
                Accessible.role: Accessible.PageTab
                Accessible.name: text
                Accessible.selectable: true
                Accessible.selected: selected
                Accessible.onPressAction: segment.clicked()
                onClicked: root.choose(index)
                Keys.onReturnPressed: segment.clicked()
                Keys.onEnterPressed: segment.clicked()
                Keys.onLeftPressed: goTo(index - 1)
                Keys.onRightPressed: goTo(index + 1)

                contentItem: PlainText {
                    text: segment.text
                    font.pixelSize: Theme.secondaryFont
                    font.bold: segment.selected
                    color: segment.selected ? Theme.accentInk : Theme.drawn(root.control.tintColor)
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 13
                    wrapMode: Text.NoWrap
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                }

                background: Item {
                    Rectangle {
                        anchors.fill: parent
                        anchors.margins: 2
                        anchors.topMargin: root.inset + 2
                        anchors.bottomMargin: root.inset + 2
                        radius: 8
                        visible: segment.selected || segment.down
                        color: segment.selected ? Theme.drawn(root.control.tintColor) : Theme.pressed
                    }

                    FocusRing {
                        anchors.margins: 2
                        radius: 10
                        shown: segment.visualFocus
                    }
                }
            }
        }
    }
}
