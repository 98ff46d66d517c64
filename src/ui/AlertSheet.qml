pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** An alert over the dimmed screen, with its actions. */
T.Popup {
    id: root

    property AlertController alert: null

    // The alert is gone before its sheet has faded.
    property string heading
    property string message
    property list<string> actions
    property int cancelAction: -1
    property int destructiveAction: -1

    readonly property int perRow: actions.length === 2 ? 2 : 1

    onAlertChanged: {
        if (alert === null) {
            close();
            return;
        }
        heading = alert.heading;
        message = alert.message;
        cancelAction = alert.cancelAction;
        destructiveAction = alert.destructiveAction;
        actions = []; // so that the first of the new buttons has the focus
        actions = alert.actionTitles;
        open();
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(340, (parent?.width ?? 340) - 2 * Theme.margin)
    padding: Theme.margin
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose

    T.Overlay.modal: Rectangle {
        color: Theme.scrim

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.fadeDuration
            }
        }
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.fadeDuration
        }
        NumberAnimation {
            property: "scale"
            from: Theme.reducedMotion ? 1 : 1.1
            to: 1
            duration: Theme.moveDuration
            easing.type: Easing.OutCubic
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.fadeDuration
        }
    }

    background: Rectangle {
        radius: Theme.sheetRadius
        color: Theme.surface
        border.width: 2
        border.color: Theme.edge
    }

    contentItem: Column {
        spacing: Theme.gap
        Accessible.role: Accessible.AlertMessage
        Accessible.name: root.heading
        Accessible.description: root.message
        Keys.onEscapePressed: if (root.cancelAction >= 0)
            root.alert?.choose(root.cancelAction)

        PlainText {
            width: parent.width
            visible: text !== ""
            text: root.heading
            font.bold: true
            horizontalAlignment: Text.AlignHCenter
        }

        PlainText {
            width: parent.width
            bottomPadding: Theme.gap
            visible: text !== ""
            text: root.message
            color: Theme.faintInk
            font.pixelSize: Theme.secondaryFont
            horizontalAlignment: Text.AlignHCenter
        }

        // Two side by side, more below each other.
        Grid {
            width: parent.width
            columns: root.perRow
            spacing: Theme.gap

            Repeater {
                model: root.actions

                PlainButton {
                    required property int index
                    required property string modelData

                    width: ((parent?.width ?? 0) - (root.perRow - 1) * Theme.gap) / root.perRow
                    text: modelData
                    filled: root.actions.length === 1
                    destructive: index === root.destructiveAction
                    focus: index === 0
                    onClicked: root.alert?.choose(index)
                }
            }
        }
    }
}
