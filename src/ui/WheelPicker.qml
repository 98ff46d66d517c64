pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** A picker as a wheel, which starts at the row of the field's text. */
FocusScope {
    id: root

    required property ToolkitPickerView picker
    required property string text

    function start(): void {
        picker.reloadAllComponents();
        face.show(Math.max(0, picker.rowWithTitle(text)));
    }

    implicitHeight: face.implicitHeight
    onPickerChanged: start()
    onTextChanged: {
        const row = picker.rowWithTitle(text);
        if (row >= 0 && row !== face.currentRow)
            face.show(row);
    }
    Component.onCompleted: start()

    Connections {
        target: Editing

        function onTurned(steps: int) {
            face.turn(steps);
        }
    }

    PlainText {
        anchors.fill: parent
        anchors.margins: Theme.margin
        visible: face.to < 0
        text: qsTr("There is nothing to choose from yet. Type it in the field.")
        color: Theme.faintInk
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Wheel {
        id: face

        anchors.fill: parent
        focus: true
        name: root.picker?.accessibilityLabel ?? ""
        model: root.picker?.rows ?? null
        onTurned: row => root.picker?.choose(row)

        delegate: WheelRow {
            required property var model

            owner: face
            text: model.text
            font.pixelSize: Theme.scaled(model.fontSize > 0 ? model.fontSize : 17)
            font.bold: model.bold
            horizontalAlignment: model.centered ? Text.AlignHCenter : Text.AlignLeft
        }
    }
}
