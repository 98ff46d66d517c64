import QtQuick
import QtQuick.Templates as T
import Lantern

/** A line of text to enter, below its name. */
FocusScope {
    id: root

    required property ToolkitTextField control

    property alias readOnly: field.readOnly
    property bool named: true

    implicitWidth: 120
    implicitHeight: (named ? name.height + 4 : 0) + field.height
    visible: !control.hidden

    PlainText {
        id: name

        width: parent.width
        visible: root.named
        text: root.control.accessibilityLabel
        color: Theme.faintInk
        font.pixelSize: Theme.captionFont
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        Accessible.ignored: true
    }

    T.TextField {
        id: field

        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.controlHeight
        leftPadding: 12
        rightPadding: 12
        color: Theme.ink
        font.pixelSize: Theme.bodyFont
        verticalAlignment: TextInput.AlignVCenter
        selectByMouse: true
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentInk
        focus: true
        text: root.control.text
        Accessible.role: Accessible.EditableText
        Accessible.name: root.control.accessibilityLabel
        // A text that is too long for the field shows its beginning, until it is edited.
        onTextChanged: {
            if (!activeFocus)
                cursorPosition = 0;
            if (!readOnly && text !== root.control.text)
                root.control.enter(text);
        }
        onActiveFocusChanged: if (!activeFocus)
            cursorPosition = 0;
        else if (focusReason === Qt.TabFocusReason || focusReason === Qt.BacktabFocusReason)
            cursorPosition = length
        Keys.onEscapePressed: root.control.endEditing()
        Keys.onReturnPressed: root.control.pressReturn()
        Keys.onEnterPressed: root.control.pressReturn()
        Keys.onUpPressed: Editing.turned(-1)
        Keys.onDownPressed: Editing.turned(1)
        Keys.onTabPressed: event => {
            event.accepted = Editing.sheetOpen;
            if (event.accepted)
                Editing.entered();
        }

        background: FieldFrame {
            control: root.control
            focused: field.activeFocus
        }

        TextMenuArea {
            field: field
        }
    }

    EditingLink {
        control: root.control
        field: field
        scope: root
    }
}
