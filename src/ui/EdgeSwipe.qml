import QtQuick
import QtQuick.Templates as T
import Lantern

/** Draws the top screen of a stack aside from the left edge, to go back. */
Item {
    id: root

    required property T.StackView stack

    /** How far a covered screen stands aside, as a part of the width. */
    readonly property real parallax: 0.3

    signal swiped

    function moveTo(x: real): void {
        const below = stack.get(stack.depth - 2);
        stack.currentItem.x = x;
        if (below !== null) {
            below.visible = x > 0;
            below.x = -parallax * (stack.width - x);
        }
    }

    anchors.left: stack.left
    anchors.top: stack.top
    anchors.bottom: stack.bottom
    width: 20

    DragHandler {
        id: drag

        property Item dragged: null

        target: null
        yAxis.enabled: false
        xAxis.minimum: 0
        onActiveTranslationChanged: if (active)
            root.moveTo(Math.max(0, activeTranslation.x))
        onActiveChanged: {
            if (active) {
                dragged = root.stack.currentItem;
            } else if (dragged !== null) {
                if (dragged.x > root.stack.width / 3)
                    root.swiped();
                if (dragged === root.stack.currentItem)
                    settle.start();
            }
        }
    }

    NumberAnimation {
        id: settle

        property real position: 0

        target: root.stack.currentItem
        property: "x"
        to: 0
        duration: Theme.moveDuration
        onFinished: root.moveTo(0)
    }
}
