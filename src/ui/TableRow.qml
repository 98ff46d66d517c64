pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** One row of a table, in the look of the cell that it borrows while it is on the screen. A swipe
 * to the left moves the row aside from its actions. */
T.ItemDelegate {
    id: root

    required property int index
    required property TableListView owner

    /** Stays until the row takes another one, so that what shows it is not cleared in between. */
    property TableViewCell cell: null
    /** Whether the cell is the row's own, not given back. */
    property bool shown: false
    property list<string> actions
    property bool swiped: false

    /** Whether what the row led to stands beside its list. */
    readonly property bool marked: owner.gate !== null && owner.table.selectedRow === index
    readonly property bool current: ListView.isCurrentItem && owner.list.activeFocus
                                    || owner.menuRow === index
    readonly property real fixedHeight: owner.table.heightForRow(index)
    readonly property bool open: owner.openRow === root
    /** How far the row moves aside from its actions, in points. */
    readonly property real reach: actions.length * actionWidth
    readonly property real actionWidth: 96
    /** Where the row stands: from 0 to the left by its reach. */
    property real slide: drag.active ? drag.place : open ? -reach : 0

    function labelAt(index: int): ToolkitLabel {
        const labels = cell?.labels ?? [];
        return index < labels.length ? labels[index] as ToolkitLabel : null;
    }

    function borrow(): void {
        giveBack();
        shown = index >= 0 && index < owner.table.rowCount();
        if (shown)
            cell = owner.table.beginDisplaying(index);
    }

    function giveBack(): void {
        if (shown)
            owner.table.endDisplaying(cell);
        shown = false;
    }

    // Anchored, since newer list views write the x of their rows.
    anchors.horizontalCenter: parent?.horizontalCenter
    width: Math.min(owner.width - 2 * Theme.margin, Theme.readableWidth)
    height: fixedHeight >= 0 && Theme.textScale <= 1 ? fixedHeight
          : Math.max(fixedHeight, fixedHeight >= 0 ? 0 : Theme.touchTarget,
                     implicitContentHeight + topPadding + bottomPadding)
    leftPadding: Theme.margin + slide
    rightPadding: (chevron.visible ? chevron.width + 2 : 0) + Theme.margin - slide
    topPadding: Theme.gap
    bottomPadding: Theme.gap
    leftInset: slide
    rightInset: -slide
    topInset: 3
    bottomInset: 3
    focusPolicy: Qt.NoFocus
    hoverEnabled: true
    text: labelAt(0)?.text ?? ""
    Accessible.role: Accessible.ListItem
    Accessible.name: (cell?.labels ?? []).map(label => label.text.trim()).filter(text => text).join(", ")
    Accessible.ignored: !shown
    Accessible.onPressAction: root.clicked()

    Component.onCompleted: borrow()
    Component.onDestruction: giveBack()
    ListView.onPooled: {
        giveBack();
        owner.shut(root);
    }
    ListView.onReused: {
        opacity = 1;
        borrow();
    }
    onPressed: swiped = false
    onHoveredChanged: {
        if (hovered)
            owner.hoveredRow = root;
        else if (owner.hoveredRow === root)
            owner.hoveredRow = null;
    }
    onCurrentChanged: if (current)
        Announcer.focus(root)
    onClicked: {
        if (owner.openRow !== null) {
            owner.openRow = null;
            return;
        }
        owner.list.currentIndex = index;
        owner.list.forceActiveFocus(Qt.MouseFocusReason);
        owner.choose(index);
    }

    Behavior on slide {
        enabled: !drag.active && root.shown

        NumberAnimation {
            duration: Theme.moveDuration
            easing.type: Easing.OutCubic
        }
    }

    Connections {
        target: root.owner.table

        function onReloaded() {
            if (root.shown)
                root.borrow();
        }
    }

    // The row would take the right button for a tap: with its drag handler it accepts every button.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.RightButton
        onClicked: mouse => root.owner.openMenu(root.index,
                                                root.mapToItem(root.owner, mouse.x, mouse.y))
    }

    DragHandler {
        id: drag

        enabled: root.owner.gate === null

        property real start: 0
        property real place: 0

        // The list may not take a swipe that has begun for a flick.
        grabPermissions: PointerHandler.CanTakeOverFromItems
                         | PointerHandler.CanTakeOverFromHandlersOfDifferentType
                         | PointerHandler.ApprovesCancellation
        target: null
        yAxis.enabled: false
        onActiveTranslationChanged: if (active)
            place = Math.max(-root.reach, Math.min(start + activeTranslation.x, 0))
        onActiveChanged: {
            if (active) {
                root.swiped = true;
                root.actions = root.owner.table.swipeActionTitles(root.index);
                start = root.open ? -root.reach : 0;
                place = start;
            } else if (place < -root.reach / 2) {
                root.owner.openRow = root;
            } else {
                root.owner.shut(root);
            }
        }
    }

    background: Rectangle {
        radius: root.cell?.cornerRadius ?? 0
        color: Theme.drawn(root.cell?.backgroundColor ?? "transparent")
        border.width: root.cell?.borderWidth ?? 0
        border.color: Theme.edgeOf(root.cell?.borderColor ?? "transparent")

        Rectangle {
            // A press that becomes a swipe is never released.
            readonly property bool pressed: root.down && !root.swiped
                                            || root.owner.table.selectedRow === root.index && !root.marked

            anchors.fill: parent
            radius: parent.radius
            color: pressed ? Theme.pressed : Theme.hovered
            visible: pressed || root.hovered && !root.down
        }

        FocusRing {
            anchors.margins: 0
            radius: parent.radius
            border.width: 4
            shown: root.current
        }
    }

    Symbol {
        id: chevron

        anchors.verticalCenter: parent.verticalCenter
        x: root.width - width - 10 + root.slide
        visible: root.owner.table.rowsLeadOn
        name: "chevron.right"
        size: 18
        tint: root.marked ? Theme.accent : Theme.faintInk
    }

    Rectangle {
        x: root.leftInset + 6
        y: root.topInset + 7
        width: 5
        height: parent.height - 2 * y
        radius: 2
        visible: root.marked
        color: Theme.accent
    }

    Item {
        anchors.right: parent.right
        y: root.topInset
        width: -root.slide
        height: parent.height - root.topInset - root.bottomInset
        visible: root.slide < 0
        clip: true

        // The row goes before its actions do.
        Item {
            anchors.right: parent.right
            width: root.reach
            height: parent.height

            Repeater {
                model: root.actions

                T.AbstractButton {
                    required property int index
                    required property string modelData

                    x: index * (root?.actionWidth ?? 0) + 6
                    width: (root?.actionWidth ?? 6) - 6
                    height: parent?.height ?? 0
                    focusPolicy: Qt.NoFocus
                    text: modelData
                    Accessible.role: Accessible.Button
                    Accessible.name: text
                    Accessible.onPressAction: clicked()
                    onClicked: root.owner.performAction(root.index, index)

                    contentItem: PlainText {
                        text: parent?.text ?? ""
                        color: Theme.accentInk
                        elide: Text.ElideRight
                        font.bold: true
                        fontSizeMode: Text.HorizontalFit
                        minimumPixelSize: 13
                        leftPadding: 4
                        rightPadding: 4
                        wrapMode: Text.NoWrap
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                    }

                    background: Rectangle {
                        radius: root.cell?.cornerRadius ?? 0
                        color: parent?.index === 0 ? Theme.danger : Theme.accent
                    }
                }
            }
        }
    }
}
