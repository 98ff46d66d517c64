pragma Singleton

import QtQuick
import Lantern

/** Colours, measures and durations that all views share, as the user wants programs to look. Lengths
 * are points. */
QtObject {
    id: root

    property Appearance appearance: null

    readonly property bool dark: appearance?.dark ?? false
    readonly property bool highContrast: appearance?.highContrast ?? false
    readonly property bool reducedMotion: appearance?.reducedMotion ?? false
    readonly property real textScale: appearance?.textScale ?? 1

    readonly property color paper: highContrast ? (dark ? "#000000" : "#ffffff")
                                                : (dark ? "#16130f" : "#f8f5ee")
    readonly property color side: highContrast ? paper : dark ? "#100e0b" : "#f1ece1"
    readonly property color surface: highContrast ? paper : dark ? "#1f1c17" : "#fffefb"
    readonly property color well: highContrast ? paper : dark ? "#2a2620" : "#e8e1d2"
    readonly property color ink: highContrast ? (dark ? "#ffffff" : "#000000")
                                              : (dark ? "#f0e9dd" : "#1b1814")
    readonly property color faintInk: highContrast ? (dark ? "#e6e6e6" : "#262626")
                                                   : (dark ? "#b8ad9d" : "#5a5349")
    readonly property color line: highContrast ? ink : dark ? "#3a342b" : "#ddd5c6"
    readonly property color accent: !dark ? "#0026a6" : highContrast ? "#b9c6ff" : "#879bdc"
    readonly property color accentInk: !dark ? "#ffffff" : highContrast ? "#000000" : "#16130f"
    /** The accent of the other look, on ink. */
    readonly property color accentOnInk: dark ? "#0026a6" : highContrast ? "#b9c6ff" : "#879bdc"
    readonly property color danger: highContrast ? (dark ? "#ffb3ad" : "#8a0018")
                                                 : (dark ? "#da8191" : "#b00020")
    readonly property color lamp: highContrast ? (dark ? "#ffc24a" : "#b36b00")
                                               : (dark ? "#f2b13c" : "#f2a31b")
    readonly property color track: Qt.alpha(accent, dark ? 0.16 : 0.08)
    readonly property color hovered: Qt.alpha(ink, 0.04)
    readonly property color pressed: Qt.alpha(ink, 0.08)
    readonly property color scrim: dark ? "#99000000" : "#591b1814"
    /** The border of a control in black. */
    readonly property color edge: edgeOf("#000000")

    /** A controller's colour as it is drawn: the dark look turns its lightness round. */
    function drawn(wanted: color): color {
        const light = Qt.color(wanted);
        return dark ? Qt.hsla(Math.max(0, light.hslHue), 0.55 * light.hslSaturation,
                              0.13 + 0.84 * (1 - light.hslLightness), light.a) : light;
    }

    /** The same of a border, which on dark ground is softer. */
    function edgeOf(wanted: color): color {
        const seen = drawn(wanted);
        return dark && !highContrast ? Qt.alpha(seen, 0.55 * seen.a) : seen;
    }

    /** The same of a text, for which pure red is too light. */
    function textOf(wanted: color): color {
        return Qt.colorEqual(wanted, "#ff0000") ? danger
             : Qt.colorEqual(wanted, "#000000") ? ink : drawn(wanted);
    }

    /** A length that holds text, as texts grow. */
    function scaled(length: real): real {
        return Math.round(length * textScale);
    }

    readonly property int bodyFont: scaled(17)
    readonly property int secondaryFont: scaled(15)
    readonly property int captionFont: scaled(13)
    readonly property int titleFont: scaled(22)
    readonly property int readingFont: scaled(26)
    readonly property int largestFont: 400

    readonly property int gap: 8
    readonly property int margin: 16
    readonly property int touchTarget: 44
    /** Of a control that holds a line of text. */
    readonly property int controlHeight: Math.max(touchTarget, scaled(36))
    readonly property int barHeight: Math.max(52, scaled(40))
    readonly property int readableWidth: 640
    readonly property int formWidth: 736
    readonly property int buttonRadius: 10
    readonly property int sheetRadius: 14

    /** Where nothing is to move, what would move is there at once. */
    readonly property int slideDuration: reducedMotion ? 0 : 260
    readonly property int moveDuration: reducedMotion ? 0 : 160
    readonly property int fadeDuration: reducedMotion ? 100 : 160
    readonly property int rowDuration: reducedMotion ? 0 : 200
}
