import QtQuick
import Lantern

/** A system symbol by its name, in strokes. */
Canvas {
    id: root

    required property string name

    property color tint: Theme.accent

    implicitWidth: 24
    implicitHeight: 24

    onTintChanged: requestPaint()
    onNameChanged: requestPaint()
    onPaint: {
        const strokes = {
            "arrow.up.arrow.down": [[[8, 20], [8, 4]], [[4, 8], [8, 4], [12, 8]],
                                    [[16, 4], [16, 20]], [[12, 16], [16, 20], [20, 16]]],
            "printer": [[[7, 9], [7, 3], [17, 3], [17, 9]],
                        [[7, 17], [3, 17], [3, 9], [21, 9], [21, 17], [17, 17]],
                        [[7, 14], [17, 14], [17, 21], [7, 21], [7, 14]]]
        };
        const context = getContext("2d");
        context.reset();
        context.strokeStyle = tint;
        context.lineWidth = 2;
        context.lineCap = "round";
        context.lineJoin = "round";
        for (const stroke of strokes[name] ?? []) {
            context.beginPath();
            stroke.forEach(([x, y], i) => i === 0 ? context.moveTo(x, y) : context.lineTo(x, y));
            context.stroke();
        }
    }
}
