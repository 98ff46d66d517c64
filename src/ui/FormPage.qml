import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Lantern

/** A page of controls in one column of readable width, which scrolls when it is too long. */
FocusScope {
    id: root

    default property alias content: column.data
    property alias spacing: column.spacing
    property real widest: Theme.readableWidth

    readonly property Item focusedItem: Window.activeFocusItem

    signal backgroundTapped

    /** Scrolls to the field that the user is in, or whose sheet the user is in; within a text to its
     * caret. What is in sight stays where it is, under the finger or the mouse. */
    function reveal(): void {
        const item = Editing.sheet?.activeFocus ? Editing.field : focusedItem;
        let holder = item;
        while (holder !== null && holder !== column)
            holder = holder.parent;
        if (holder === null || item === column)
            return;
        const part = (item as TextEdit)?.cursorRectangle ?? Qt.rect(0, 0, item.width, item.height);
        const visibleHeight = page.height - Editing.sheetHeight;
        const margin = Math.max(0, Math.min(Theme.margin, (visibleHeight - part.height) / 2));
        const top = column.y + item.mapToItem(column, 0, part.y).y;
        const bottom = top + part.height;
        const end = Math.max(0, page.contentHeight + page.bottomMargin - page.height);
        if (bottom > page.contentY + visibleHeight)
            page.contentY = Math.min(bottom + margin - visibleHeight, end);
        if (top < page.contentY)
            page.contentY = Math.max(0, top - margin);
    }

    onFocusedItemChanged: reveal()

    Connections {
        target: root.focusedItem as TextEdit

        function onCursorRectangleChanged() {
            root.reveal();
        }
    }

    Connections {
        target: Editing

        function onSheetHeightChanged() {
            root.reveal();
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.paper
    }

    Flickable {
        id: page

        anchors.fill: parent
        contentWidth: width
        contentHeight: Math.max(column.height + 2 * Theme.margin, height)
        bottomMargin: Editing.sheetHeight
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        T.ScrollBar.vertical: PageScrollBar {}

        // A tap handler would also see what is tapped in a sheet over the page.
        MouseArea {
            width: page.contentWidth
            height: page.contentHeight
            onClicked: root.backgroundTapped()
        }

        ColumnLayout {
            id: column

            x: (page.width - width) / 2
            y: Theme.margin
            width: Math.min(page.width - 2 * Theme.margin, root.widest)
            height: Math.max(implicitHeight, page.height - 2 * Theme.margin)
            spacing: Theme.gap
        }
    }
}
