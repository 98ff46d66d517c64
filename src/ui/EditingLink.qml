import QtQuick
import Lantern

/** Ties the keyboard focus of a field to the editing of its text input: the one that has the focus
 * is being edited, also while the user is in the sheet of its input view. */
Item {
    id: root

    required property ToolkitTextInput control
    required property Item field
    /** Keeps the keyboard's place on the page when the field is left. */
    required property FocusScope scope

    function followControl(): void {
        if (control.editing) {
            Editing.field = field;
            Editing.input = control;
            field.forceActiveFocus();
        } else {
            const hadFocus = field.activeFocus || (Editing.sheet?.activeFocus ?? false);
            field.focus = false;
            if (hadFocus)
                scope.forceActiveFocus();
            if (Editing.input === control)
                Editing.input = null;
        }
    }

    Component.onDestruction: if (Editing.input === control)
        Editing.input = null

    // Once the focus has arrived where it goes; a window in the background keeps the editing.
    Timer {
        id: left

        interval: 0
        onTriggered: if (!root.field.activeFocus && !(Editing.sheet?.activeFocus ?? false)
                         && root.Window.active)
            root.control.endEditing()
    }

    Connections {
        target: root.field

        function onActiveFocusChanged() {
            if (root.field.activeFocus)
                root.control.beginEditing();
            else
                left.start();
        }
    }

    Connections {
        target: Editing.sheet

        function onActiveFocusChanged() {
            left.start();
        }
    }

    Connections {
        target: root.control

        function onEditingChanged() {
            root.followControl();
        }
    }
}
