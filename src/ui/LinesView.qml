pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** A text to read, however long: a row for each line, wrapped or cut off as its control asks. */
FocusScope {
    id: root

    required property ToolkitTextView control

    implicitHeight: 160

    FieldFrame {
        anchors.fill: parent
        control: root.control
        focused: list.activeFocus
    }

    ListView {
        id: list

        anchors.fill: parent
        anchors.margins: 6
        model: root.control.lines
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        focus: true
        activeFocusOnTab: true
        keyNavigationEnabled: false
        objectName: root.control.accessibilityLabel
        Accessible.role: Accessible.List
        Accessible.name: root.control.accessibilityLabel
        Keys.onUpPressed: contentY = Math.max(originY, contentY - 2 * Theme.touchTarget)
        Keys.onDownPressed: contentY = Math.max(originY, Math.min(originY + contentHeight - height,
                                                contentY + 2 * Theme.touchTarget))

        T.ScrollBar.vertical: PageScrollBar {}

        delegate: PlainText {
            required property string line

            width: list.width
            height: Math.max(22, implicitHeight)
            leftPadding: 6
            rightPadding: 16
            text: line
            font.pixelSize: Theme.secondaryFont
            elide: Text.ElideRight
            wrapMode: root.control.wrapsLines ? Text.Wrap : Text.NoWrap
        }
    }
}
