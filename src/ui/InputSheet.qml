pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** The input view of the text input that is being edited, at the window's bottom where a phone has
 * its keyboard. The field keeps the focus, so that a hardware keyboard still types in it. */
FocusScope {
    id: root

    required property Keyboard keyboard

    readonly property ToolkitTextInput input: Editing.input
    readonly property ToolkitView inputView: input?.inputView ?? null
    readonly property bool open: inputView !== null
    readonly property real covered: open ? height : 0

    // What is shown stays until the sheet has gone down.
    property ToolkitView shownView: null
    property ToolkitToolbar shownToolbar: null

    readonly property ToolkitPickerView picker: shownView as ToolkitPickerView
    readonly property ToolkitDatePicker datePicker: shownView as ToolkitDatePicker
    readonly property int dateStyle: datePicker?.style ?? -1

    onInputViewChanged: if (inputView !== null)
        shownView = inputView
    onInputChanged: if (input !== null)
        shownToolbar = Qt.binding(() => root.input?.inputAccessoryView ?? null)
    onVisibleChanged: if (!visible)
        shownView = null
    Component.onCompleted: Editing.sheet = root
    onCoveredChanged: {
        Editing.sheetHeight = covered;
        if (covered > 0)
            keyboard.willChangeFrame(covered);
        else
            keyboard.willHide();
    }
    Keys.onEscapePressed: input?.endEditing()

    width: parent.width
    height: content.height
    y: parent.height - covered
    visible: y < parent.height
    enabled: open

    Behavior on y {
        enabled: root.shownView !== null

        NumberAnimation {
            duration: Theme.slideDuration
            easing.type: Easing.OutCubic
        }
    }

    Connections {
        target: Editing

        function onEntered() {
            face.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
        border.width: 1
        border.color: Theme.line
    }

    MouseArea {
        anchors.fill: parent
    }

    Item {
        id: start

        activeFocusOnTab: true
        onActiveFocusChanged: if (activeFocus)
            Editing.field?.forceActiveFocus(Qt.BacktabFocusReason)
    }

    Column {
        id: content

        width: parent.width
        bottomPadding: Theme.gap

        Repeater {
            model: root.shownToolbar !== null ? [root.shownToolbar] : []

            ToolbarView {
                required property QtObject modelData

                width: content.width
                control: modelData as ToolkitToolbar
            }
        }

        TextButton {
            anchors.right: parent.right
            anchors.rightMargin: Theme.gap
            visible: root.shownToolbar === null
            text: qsTr("Done")
            bold: true
            onClicked: root.input?.endEditing()
        }

        FocusScope {
            id: face

            anchors.horizontalCenter: parent.horizontalCenter
            // Seven days of 44 points fit the narrowest window.
            width: Math.min(parent.width - 12, 420)
            height: childrenRect.height
            focus: true

            // Each takes the focus once it stands here, since the one before it may still be there.
            Repeater {
                model: root.picker !== null ? [root.picker] : []

                WheelPicker {
                    required property QtObject modelData

                    width: face.width
                    Component.onCompleted: focus = true
                    picker: modelData as ToolkitPickerView
                    text: root.input?.text ?? ""
                }
            }

            Repeater {
                model: root.datePicker !== null && root.dateStyle === ToolkitDatePicker.Wheels
                       ? [root.datePicker] : []

                DateWheels {
                    required property QtObject modelData

                    width: face.width
                    Component.onCompleted: focus = true
                    picker: modelData as ToolkitDatePicker
                }
            }

            Repeater {
                model: root.datePicker !== null && root.dateStyle >= 0
                       && root.dateStyle !== ToolkitDatePicker.Wheels ? [root.datePicker] : []

                CompactDatePicker {
                    required property QtObject modelData

                    width: face.width
                    Component.onCompleted: focus = true
                    picker: modelData as ToolkitDatePicker
                    alwaysUnfolded: root.dateStyle === ToolkitDatePicker.Inline
                }
            }
        }
    }

    T.Control {
        id: end

        focusPolicy: Qt.TabFocus
        Accessible.ignored: true
        onActiveFocusChanged: if (activeFocus)
            goOn.start()
    }

    // A field that begins its editing closes the sheet, which may not happen while the focus is
    // still on its way. Out of the window's first control, going back means its last one.
    Timer {
        id: goOn

        interval: 0
        onTriggered: {
            if (end.focusReason === Qt.BacktabFocusReason)
                start.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
            else
                Editing.field?.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
        }
    }
}
