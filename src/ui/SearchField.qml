import QtQuick
import QtQuick.Templates as T
import Lantern

/** The field above a table in which the user types what to look for. */
T.TextField {
    id: root

    required property SearchController controller

    height: Theme.touchTarget
    leftPadding: 36
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
    objectName: controller.searchBar.accessibilityLabel
    Accessible.role: Accessible.EditableText
    Accessible.name: controller.searchBar.accessibilityLabel
    Accessible.searchEdit: true
    onTextChanged: if (text !== controller.searchBar.text)
        controller.searchBar.text = text
    onActiveFocusChanged: controller.active = activeFocus
    Keys.onEscapePressed: focus = false

    Connections {
        target: root.controller

        function onActiveChanged() {
            if (root.controller.active)
                root.forceActiveFocus();
            else
                root.focus = false;
        }
    }

    background: Rectangle {
        radius: 10
        color: Theme.surface
        border.width: 1
        border.color: Theme.line

        FocusRing {
            radius: 13
            shown: root.activeFocus
        }
    }

    PlainText {
        x: 12
        height: parent.height
        visible: root.length === 0 && root.preeditText === ""
        leftPadding: 24
        width: parent.width - x
        text: root.placeholderText
        color: root.placeholderTextColor
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    Canvas {
        x: 12
        anchors.verticalCenter: parent.verticalCenter
        width: 16
        height: 16

        onPaint: {
            const context = getContext("2d");
            context.strokeStyle = Theme.faintInk;
            context.lineWidth = 2;
            context.lineCap = "round";
            context.arc(6.5, 6.5, 5, 0, 2 * Math.PI);
            context.moveTo(10.5, 10.5);
            context.lineTo(15, 15);
            context.stroke();
        }
    }

    TextButton {
        id: clear

        anchors.right: parent.right
        visible: root.length > 0
        text: qsTr("Clear")
        tint: Theme.faintInk
        onClicked: {
            root.controller.searchBar.text = "";
            root.forceActiveFocus();
        }
    }
}
