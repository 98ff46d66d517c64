import QtQuick
import QtQuick.Templates as T
import Lantern

/** A day of a month calendar; an empty place before and after the month. */
T.AbstractButton {
    id: root

    property bool shown: true
    property bool chosen: false
    property bool ringed: false

    focusPolicy: Qt.NoFocus
    enabled: shown
    opacity: shown ? 1 : 0
    Accessible.role: Accessible.Button
    Accessible.selected: chosen
    Accessible.ignored: !shown
    Accessible.onPressAction: root.clicked()

    contentItem: PlainText {
        text: root.text
        color: root.chosen ? Theme.accentInk : Theme.ink
        wrapMode: Text.NoWrap
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    background: Item {
        Rectangle {
            anchors.centerIn: parent
            width: Math.min(parent.width, parent.height) - 4
            height: width
            radius: width / 2
            visible: root.chosen || root.down
            color: root.chosen ? Theme.accent : Theme.pressed

            FocusRing {
                radius: width / 2
                shown: root.ringed
            }
        }
    }
}
