import QtQuick
import Lantern

/** A screen's bar that fills as work goes on. */
ProgressLine {
    required property ToolkitProgressBar control

    value: control.progress
    label: control.accessibilityLabel
    animated: control.animated
}
