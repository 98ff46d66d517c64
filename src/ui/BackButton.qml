import QtQuick
import Lantern

/** A chevron and the word for going back. */
TextButton {
    id: root

    leftPadding: 26

    Canvas {
        x: Theme.gap
        width: 12
        height: root.height
        opacity: root.down ? 0.4 : 1

        onPaint: {
            const context = getContext("2d");
            const middle = height / 2;
            context.strokeStyle = Theme.accent;
            context.lineWidth = 2.5;
            context.lineCap = "round";
            context.lineJoin = "round";
            context.beginPath();
            context.moveTo(width - 2, middle - 8);
            context.lineTo(2, middle);
            context.lineTo(width - 2, middle + 8);
            context.stroke();
        }
    }
}
