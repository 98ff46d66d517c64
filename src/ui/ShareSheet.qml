pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** The activities for what is shared, in a sheet at the window's bottom. */
BottomSheet {
    id: root

    property ActivityViewController activity: null

    property list<string> titles

    onActivityChanged: {
        if (activity === null) {
            close();
            return;
        }
        titles = []; // so that the first of the new buttons has the focus
        titles = activity.activityTitles;
        open();
    }
    onClosed: activity?.cancel()

    width: Math.min(parent?.width ?? 0, 480)
    padding: Theme.margin
    topPadding: Theme.gap
    height: contentItem.implicitHeight + topPadding + bottomPadding

    contentItem: Column {
        Item {
            width: parent.width
            height: Theme.controlHeight

            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Share")
                font.bold: true
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            TextButton {
                anchors.right: parent.right
                anchors.rightMargin: -Theme.gap
                text: qsTr("Cancel")
                focus: root.titles.length === 0
                onClicked: root.close()
            }
        }

        Repeater {
            model: root.titles

            SheetButton {
                required property int index
                required property string modelData

                width: parent?.width ?? 0
                text: modelData
                focus: index === 0
                onClicked: root.activity?.choose(index)
            }
        }
    }
}
