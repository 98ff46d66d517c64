import QtQuick
import QtQuick.Templates as T
import Lantern

/** Many lines of text to enter or to read, below their name. */
FocusScope {
    id: root

    required property ToolkitTextView control

    property alias readOnly: area.readOnly
    property real fontSize: Theme.bodyFont

    /** A text area gives back some characters as others. */
    function shown(text: string): string {
        return text.replace(/\u00a0/g, " ").replace(/\r\n?|[\u2028\u2029\ufdd0\ufdd1]/g, "\n");
    }

    function reveal(position: int): void {
        const rectangle = area.positionToRectangle(position);
        const bottom = rectangle.y + rectangle.height + area.topPadding + root.control.bottomInset;
        if (rectangle.y < page.contentY)
            page.contentY = rectangle.y;
        else if (bottom > page.contentY + page.height)
            page.contentY = bottom - page.height;
    }

    implicitWidth: 120
    implicitHeight: 160
    visible: !control.hidden

    Connections {
        target: root.control

        function onScrollToSelectionRequested() {
            root.reveal(area.cursorPosition);
        }
    }

    PlainText {
        id: name

        width: parent.width
        text: root.control.accessibilityLabel
        color: Theme.faintInk
        font.pixelSize: Theme.captionFont
        Accessible.ignored: true
    }

    FieldFrame {
        anchors.fill: page
        control: root.control
        focused: area.activeFocus
    }

    Flickable {
        id: page

        anchors.top: name.bottom
        anchors.topMargin: 4
        anchors.bottom: parent.bottom
        width: parent.width
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        T.ScrollBar.vertical: PageScrollBar {}

        T.TextArea.flickable: T.TextArea {
            id: area

            padding: 12
            bottomPadding: 12 + root.control.bottomInset
            color: Theme.ink
            font.pixelSize: root.fontSize
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            selectByMouse: true
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentInk
            focus: true
            text: root.control.text
            objectName: root.control.accessibilityLabel
            Accessible.role: Accessible.EditableText
            Accessible.name: root.control.accessibilityLabel
            Accessible.multiLine: true
            KeyNavigation.priority: KeyNavigation.BeforeItem
            KeyNavigation.tab: nextItemInFocusChain(true)
            KeyNavigation.backtab: nextItemInFocusChain(false)
            onTextChanged: if (text !== root.shown(root.control.text))
                root.control.text = text
            Keys.onEscapePressed: root.control.endEditing()
        }
    }

    EditingLink {
        control: root.control
        field: area
        scope: root
    }
}
