import QtQuick
import Lantern

/** The lamp of the program's icon; unlit it is strokes alone. */
Canvas {
    id: root

    property bool lit: true

    readonly property color stroke: lit ? Theme.ink : Theme.faintInk
    readonly property color light: Theme.lamp

    height: width
    implicitWidth: 120
    Accessible.ignored: true

    onStrokeChanged: requestPaint()
    onLightChanged: requestPaint()
    onPaint: {
        const context = getContext("2d");
        context.reset();
        context.scale(width / 92, height / 92);
        context.translate(-18, -16);
        context.lineCap = "round";
        context.lineJoin = "round";
        context.strokeStyle = stroke;
        const draw = (path, thickness, fill) => {
            context.path = path;
            if (fill !== null) {
                context.fillStyle = fill;
                context.fill();
            }
            if (thickness > 0) {
                context.lineWidth = thickness;
                context.stroke();
            }
        };
        const width5 = lit ? 5 : 3;
        draw("M51 33 A13 13 0 1 1 77 33", width5, null);
        draw("M41 53 L87 53 C93 67 93 83 87 97 L41 97 C35 83 35 67 41 53 Z", width5,
             lit ? light : null);
        draw("M42 51 L52 37 L76 37 L86 51 Z", width5, lit ? stroke : null);
        draw("M37 102 L91 102", lit ? 8 : 5, null);
        draw("M58.52 61.28 C49.32 65.88 44.72 73.24 44.72 82.44 A8.28 8.28 0 1 0 53.00 74.16 C53.00 69.56 54.84 64.96 58.52 61.28 Z",
             lit ? 0 : 2.5, lit ? "#1b1814" : null);
        draw("M80.02 61.28 C70.82 65.88 66.22 73.24 66.22 82.44 A8.28 8.28 0 1 0 74.50 74.16 C74.50 69.56 76.34 64.96 80.02 61.28 Z",
             lit ? 0 : 2.5, lit ? "#1b1814" : null);
    }
}
