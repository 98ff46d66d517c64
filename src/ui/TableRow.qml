pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** One row of a table, in the look of the cell that it borrows while it is on the screen. A swipe
 * to the left offers the row's actions, and so does a menu. */
T.SwipeDelegate {
    id: root

    required property int index
    required property TableListView owner

    property TableViewCell cell: null
    property list<string> actions

    readonly property bool current: ListView.isCurrentItem && owner.list.activeFocus
    readonly property real fixedHeight: owner.table.heightForRow(index)

    function borrow(): void {
        giveBack();
        if (index >= 0 && index < owner.table.rowCount())
            cell = owner.table.beginDisplaying(index);
    }

    function giveBack(): void {
        const borrowed = cell;
        cell = null;
        if (borrowed !== null)
            owner.table.endDisplaying(borrowed);
    }

    x: (owner.width - width) / 2
    width: Math.min(owner.width - 2 * Theme.margin, Theme.readableWidth)
    height: fixedHeight >= 0 ? fixedHeight : implicitContentHeight + topPadding + bottomPadding
    leftPadding: Theme.margin
    rightPadding: Theme.margin
    topPadding: Theme.gap
    bottomPadding: Theme.gap
    topInset: 2
    bottomInset: 2
    focusPolicy: Qt.NoFocus
    swipe.enabled: actions.length > 0
    objectName: text
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.onPressAction: root.clicked()

    Component.onCompleted: borrow()
    Component.onDestruction: giveBack()
    ListView.onPooled: giveBack()
    ListView.onReused: {
        opacity = 1;
        swipe.close();
        borrow();
    }
    onPressed: actions = owner.table.swipeActionTitles(index)
    onClicked: {
        owner.list.currentIndex = index;
        owner.list.forceActiveFocus(Qt.MouseFocusReason);
        owner.table.selectRow(index);
    }

    Connections {
        target: root.owner.table

        function onReloaded() {
            if (root.cell !== null)
                root.borrow();
        }
    }

    background: Rectangle {
        radius: root.cell?.cornerRadius ?? 0
        color: root.cell?.backgroundColor ?? "transparent"
        border.width: root.cell?.borderWidth ?? 0
        border.color: root.cell?.borderColor ?? "transparent"

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.pressed
            visible: root.down || root.owner.table.selectedRow === root.index
        }

        FocusRing {
            anchors.margins: 0
            radius: parent.radius
            border.width: 4
            shown: root.current
        }
    }

    swipe.right: Row {
        // The row goes before its actions do.
        anchors.right: parent?.right
        height: parent?.height ?? 0

        Repeater {
            model: root.actions

            Rectangle {
                id: action

                required property int index
                required property string modelData

                width: name.implicitWidth + 2 * Theme.margin
                y: root?.topInset ?? 0
                height: (parent?.height ?? 0) - 2 * y
                radius: root?.cell?.cornerRadius ?? 0
                visible: root?.swipe.position < 0
                color: index === 0 ? Theme.danger : Theme.accent
                objectName: modelData
                T.SwipeDelegate.onClicked: {
                    root.swipe.close();
                    root.owner.performAction(root.index, index);
                }

                PlainText {
                    id: name

                    anchors.centerIn: parent
                    text: action.modelData
                    color: Theme.accentInk
                }
            }
        }
    }
}
