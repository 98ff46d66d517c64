import QtQuick
import QtQuick.Templates as T
import Lantern

/** The field above a table in which the user types what to look for. */
T.TextField {
    id: root

    required property SearchController controller

    /** The user goes on to the results. */
    signal wentDown

    implicitHeight: Theme.controlHeight
    leftPadding: 16 + Theme.scaled(22)
    rightPadding: clear.visible ? clear.width : Theme.margin
    color: Theme.ink
    font.pixelSize: Theme.bodyFont
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    text: controller.searchBar.text
    placeholderText: controller.searchBar.placeholder
    placeholderTextColor: Theme.faintInk
    inputMethodHints: Qt.ImhNoPredictiveText
    Accessible.role: Accessible.EditableText
    Accessible.name: controller.searchBar.accessibilityLabel
    Accessible.searchEdit: true
    onTextChanged: if (text !== controller.searchBar.text)
        controller.searchBar.text = text
    onActiveFocusChanged: controller.active = activeFocus
    Keys.onEscapePressed: focus = false
    Keys.onDownPressed: wentDown()

    Connections {
        target: root.controller

        function onActiveChanged() {
            if (root.controller.active)
                root.forceActiveFocus();
            else
                root.focus = false;
        }
    }

    TextMenuArea {
        field: root
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.well
        border.width: Theme.highContrast ? 1 : 0
        border.color: Theme.ink

        FocusRing {
            radius: parent.radius + 4
            shown: root.activeFocus
        }
    }

    PlainText {
        x: root.leftPadding
        height: parent.height
        visible: root.length === 0 && root.preeditText === ""
        width: parent.width - x
        text: root.placeholderText
        color: root.placeholderTextColor
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    Symbol {
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        name: "search"
        size: 20
        tint: Theme.faintInk
    }

    TextButton {
        id: clear

        anchors.right: parent.right
        visible: root.length > 0
        text: qsTr("Clear")
        symbol: "clear"
        tint: Theme.faintInk
        onClicked: {
            root.controller.searchBar.text = "";
            root.forceActiveFocus();
        }
    }
}
