pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** The input view of the text input that is being edited: at the window's bottom where a phone has
 * its keyboard, in a wide window at its field. The field keeps the focus, so that a hardware
 * keyboard still types in it. */
FocusScope {
    id: root

    readonly property ToolkitTextInput input: Editing.input
    readonly property ToolkitView inputView: input?.inputView ?? null
    readonly property bool open: inputView !== null
    readonly property bool popover: parent.width >= 600
    readonly property real covered: open && !popover ? height : 0
    /** How high the input view may be, so that it leaves the bar free, and the field at the bottom. */
    readonly property real room: parent.height - toolbarHeight - 3 * Theme.gap
                                 - (popover ? 44 : Theme.barHeight + Theme.controlHeight)
    readonly property real toolbarHeight: Math.max(46, Theme.controlHeight)

    property real widest: Theme.scaled(356)

    /** Below the field, else above it, else beside it: never over it. */
    function stand(): void {
        if (!popover || !open || Editing.field === null)
            return;
        widest = Theme.scaled(356);
        const field = Editing.field;
        const corner = field.mapToItem(parent, 0, 0);
        const below = corner.y + field.height + Theme.gap;
        const above = corner.y - Theme.gap - height;
        x = Math.max(Theme.gap, Math.min(corner.x, parent.width - width - Theme.gap));
        if (below + height <= parent.height - Theme.gap) {
            y = below;
        } else if (above >= 44 + Theme.gap) {
            y = above;
        } else {
            const before = corner.x - 3 * Theme.gap;
            widest = Math.max(300, Math.min(Theme.scaled(356), before));
            x = before >= 300 ? corner.x - 2 * Theme.gap - width
                              : Math.min(corner.x + field.width + 2 * Theme.gap,
                                         parent.width - width);
            y = parent.height - height - Theme.gap;
        }
    }

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
    onOpenChanged: {
        Editing.sheetOpen = open;
        standing.restart();
    }
    onShownViewChanged: standing.restart()
    onHeightChanged: stand()
    onPopoverChanged: if (!popover) {
        x = 0;
        y = Qt.binding(() => root.parent.height - root.covered);
    }
    onCoveredChanged: {
        Editing.sheetHeight = covered;
        if (covered > 0)
            Editing.keyboard.willChangeFrame(covered);
        else
            Editing.keyboard.willHide();
    }
    Keys.onEscapePressed: input?.endEditing()

    width: popover ? Math.min(widest, parent.width - 2 * Theme.gap) : parent.width
    height: content.height
    y: parent.height - covered
    visible: popover ? open : y < parent.height
    enabled: open

    // Once the page has scrolled to the field.
    Timer {
        id: standing

        interval: 0
        onTriggered: root.stand()
    }

    Connections {
        target: root.parent

        function onWidthChanged() {
            standing.restart();
        }

        function onHeightChanged() {
            standing.restart();
        }
    }

    Behavior on y {
        enabled: root.shownView !== null && !root.popover

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

    Repeater {
        model: root.popover ? 6 : 0

        Rectangle {
            required property int index

            anchors.fill: parent
            anchors.margins: -index
            anchors.topMargin: 2 - index
            anchors.bottomMargin: -2 - index
            radius: Theme.sheetRadius + index
            color: "#08000000"
        }
    }

    Rectangle {
        anchors.fill: parent
        anchors.bottomMargin: root.popover ? 0 : -Theme.sheetRadius
        radius: Theme.sheetRadius
        color: Theme.surface
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
            width: Math.min(parent.width - 12, Theme.scaled(420))
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
                    room: root.room
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

        /** The sheet itself, where the field is the last control of its page. */
        function afterField(): Item {
            return Editing.field?.nextItemInFocusChain(true) ?? null;
        }

        interval: 0
        onTriggered: {
            if (end.focusReason === Qt.BacktabFocusReason)
                start.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
            else
                (afterField() === start ? end.nextItemInFocusChain(true)
                                        : afterField())?.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: root.popover ? 0 : -2
        anchors.rightMargin: anchors.leftMargin
        anchors.bottomMargin: root.popover ? 0 : -Theme.sheetRadius - 2
        radius: Theme.sheetRadius
        color: "transparent"
        border.width: root.popover || Theme.highContrast ? 2 : 1
        border.color: root.popover || Theme.highContrast ? Theme.edge : Theme.line
    }
}
