import QtQuick
import Lantern

/** A symbol by its name, in strokes. Both the system's names and our own are known. */
Canvas {
    id: root

    required property string name

    property color tint: Theme.accent
    property real size: 24

    width: size * Math.min(Theme.textScale, 1.5)
    height: width
    implicitWidth: width
    implicitHeight: height

    onTintChanged: requestPaint()
    onNameChanged: requestPaint()
    onPaint: {
        const context = getContext("2d");
        context.reset();
        const path = SymbolPaths.byName[name];
        if (path === undefined)
            return;
        context.scale(width / 24, height / 24);
        context.strokeStyle = tint;
        context.lineWidth = 2;
        context.lineCap = "round";
        context.lineJoin = "round";
        context.path = path;
        context.stroke();
    }
}
