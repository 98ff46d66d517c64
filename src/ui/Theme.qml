pragma Singleton

import QtQuick
import Lantern

/** Colours, measures and durations that all views share. Lengths are points. */
QtObject {
    readonly property color paper: "#faf6ee"
    readonly property color bar: "#f3ecdf"
    readonly property color surface: "#fffdf9"
    readonly property color ink: "#1d1a16"
    readonly property color faintInk: "#6a6257"
    readonly property color line: "#d9cfbf"
    readonly property color accent: "#1f5a8c"
    readonly property color accentInk: "#ffffff"
    readonly property color danger: "#b3261e"
    readonly property color pressed: "#1a1d1a16"
    readonly property color scrim: "#591d1a16"

    readonly property int bodyFont: 17
    readonly property int secondaryFont: 15
    readonly property int captionFont: 13
    readonly property int titleFont: 22
    readonly property int readingFont: 26
    readonly property int largestFont: 400

    readonly property int gap: 8
    readonly property int margin: 16
    readonly property int touchTarget: 44
    readonly property int barHeight: 52
    readonly property int readableWidth: 640
    readonly property int sheetRadius: 14

    readonly property int slideDuration: 260
    readonly property int fadeDuration: 160
}
