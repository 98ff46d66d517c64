import QtQuick
import QtQuick.Templates as T
import Lantern

/** Many lines of text to enter or to read, below their name. A bare one is the text alone. */
FocusScope {
    id: root

    required property ToolkitTextView control

    property alias readOnly: area.readOnly
    property alias horizontalAlignment: area.horizontalAlignment
    property string fontFamily
    property real fontSize: 17
    property bool bare: false
    property bool named: !bare
    property real margin: 12
    /** Room above the text. */
    property real lead: 0
    /** How far beside the text its scroll bar may stand. */
    property real outside: 0
    /** Whether a press begins the editing. */
    property bool editsOnPress: true
    property alias area: area
    readonly property alias pageHeight: page.height

    function scroll(points: real): void {
        const end = Math.max(0, page.contentHeight - page.height);
        page.contentY = Math.max(0, Math.min(page.contentY + points, end));
    }

    /** Moves the caret by a page. */
    function turnPage(direction: int, selects: bool): void {
        const caret = area.cursorRectangle;
        const target = area.positionAt(caret.x, caret.y + caret.height / 2
                                       + direction * (page.height - caret.height));
        if (selects)
            area.moveCursorSelection(target);
        else
            area.cursorPosition = target;
    }

    /** How high the area is that shows all its text. */
    property real fullHeight: 0

    /** The text as a text area can hold it: it ends all its paragraphs alike. */
    function shown(text: string): string {
        return text.replace(/\r\n?|[\u2029\ufdd0\ufdd1]/g, "\n");
    }

    // What has not been edited stays as it is, and so does the cursor's place.
    function followControl(): void {
        if (RawText.of(area.textDocument) === shown(control.text))
            return;
        if (area.canUndo || area.canRedo)
            RawText.replace(area.textDocument, control.text);
        else
            area.text = control.text;
    }

    function reveal(position: int): void {
        const rectangle = area.positionToRectangle(position);
        const bottom = rectangle.y + rectangle.height + area.topPadding + root.control.bottomInset;
        if (rectangle.y < page.contentY)
            page.contentY = rectangle.y;
        else if (bottom > page.contentY + page.height)
            page.contentY = bottom - page.height;
    }

    // Not while a layout gives the text its width, which would miss the change.
    Timer {
        id: measuring

        interval: 0
        onTriggered: root.fullHeight = area.contentHeight + 2 * root.margin + page.y
    }

    implicitWidth: 120
    implicitHeight: 160
    visible: !control.hidden
    Component.onCompleted: followControl()
    onControlChanged: followControl()

    Connections {
        target: root.control

        function onTextChanged() {
            root.followControl();
        }

        function onScrollToSelectionRequested() {
            root.reveal(area.cursorPosition);
        }
    }

    PlainText {
        id: name

        width: parent.width
        height: root.named ? implicitHeight : 0
        visible: root.named
        text: root.control.accessibilityLabel
        color: Theme.faintInk
        font.pixelSize: Theme.captionFont
        Accessible.ignored: true
    }

    FieldFrame {
        anchors.fill: page
        visible: !root.bare
        control: root.control
        focused: area.activeFocus
    }

    Flickable {
        id: page

        anchors.top: name.bottom
        anchors.topMargin: root.named ? 4 : 0
        anchors.bottom: parent.bottom
        width: parent.width
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        T.ScrollBar.vertical: PageScrollBar {
            parent: root.bare ? root : page
            x: parent.width - width + root.outside
            height: page.height
        }

        T.TextArea.flickable: T.TextArea {
            id: area

            padding: root.margin
            topPadding: root.margin + root.lead
            activeFocusOnPress: root.editsOnPress
            bottomPadding: root.margin + root.control.bottomInset
            color: Theme.ink
            font.family: root.fontFamily !== "" ? root.fontFamily : name.font.family
            font.pixelSize: Math.min(Theme.scaled(Math.max(8, root.fontSize)), Theme.largestFont)
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            onContentHeightChanged: measuring.start()
            selectByMouse: true
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentInk
            focus: true
            Accessible.role: Accessible.EditableText
            Accessible.name: root.control.accessibilityLabel
            Accessible.multiLine: true
            onTextChanged: {
                const text = RawText.of(textDocument);
                if (text !== root.shown(root.control.text))
                    root.control.text = text;
            }
            onActiveFocusChanged: if (activeFocus)
                root.reveal(cursorPosition)
            Keys.onEscapePressed: root.control.endEditing()
            Keys.onPressed: event => {
                event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
                if (event.accepted)
                    root.turnPage(event.key === Qt.Key_PageUp ? -1 : 1,
                                  event.modifiers & Qt.ShiftModifier);
            }
            Keys.onMenuPressed: Editing.menuAsked(area, Qt.point(cursorRectangle.x,
                                                                 cursorRectangle.y))
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

            TextMenuArea {
                field: area
            }
        }
    }

    EditingLink {
        control: root.control
        field: area
        scope: root
    }
}
