pragma ComponentBehavior: Bound

import QtQuick
import Lantern

/** The activities for what is shared, in a sheet at the window's bottom. */
BottomSheet {
    id: root

    required property ActivityViewController activity

    property list<string> titles

    onActivityChanged: {
        if (activity === null) {
            close();
            return;
        }
        titles = activity.activityTitles;
        (choices.itemAt(0) ?? cancel).focus = true;
        open();
    }
    onClosed: activity?.cancel()

    width: Math.min(parent?.width ?? 0, 480)
    padding: Theme.margin
    height: contentItem.implicitHeight + topPadding + bottomPadding

    contentItem: Column {
        spacing: Theme.gap

        Repeater {
            id: choices

            model: root.titles

            SheetButton {
                required property int index
                required property string modelData

                width: parent?.width ?? 0
                text: modelData
                onClicked: root.activity?.choose(index)
            }
        }

        SheetButton {
            id: cancel

            width: parent.width
            text: qsTr("Cancel")
            bold: true
            onClicked: root.close()
        }
    }
}
