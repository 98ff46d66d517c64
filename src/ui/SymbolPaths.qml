pragma Singleton

import QtQuick

/** The strokes of each symbol, as SVG writes paths, on a grid of 24. */
QtObject {
    readonly property var byName: ({
        "chevron.left": "M15 5 L8 12 L15 19",
        "chevron.right": "M9 6 L15 12 L9 18",
        "double.left": "M18 6 L12 12 L18 18 M11 6 L5 12 L11 18",
        "double.right": "M6 6 L12 12 L6 18 M13 6 L19 12 L13 18",
        "plus": "M12 5 L12 19 M5 12 L19 12",
        "minus": "M5 12 L19 12",
        "arrow.up.arrow.down": "M8 20 L8 4 M4 8 L8 4 L12 8 M16 4 L16 20 M12 16 L16 20 L20 16",
        "share": "M12 15 L12 3 M8 7 L12 3 L16 7 M7 11 L5 11 L5 21 L19 21 L19 11 L17 11",
        "printer": "M7 9 L7 3 L17 3 L17 9 M7 17 L3 17 L3 9 L21 9 L21 17 L17 17 M7 14 L17 14 L17 21 L7 21 L7 14",
        "search": "M15.5 15.5 L21 21 M10.5 4 A6.5 6.5 0 1 0 10.5 17 A6.5 6.5 0 1 0 10.5 4",
        "expand": "M14 4 L20 4 L20 10 M20 4 L14 10 M10 20 L4 20 L4 14 M4 20 L10 14",
        "list": "M9 6 L20 6 M9 12 L20 12 M9 18 L20 18 M4 6 L4.5 6 M4 12 L4.5 12 M4 18 L4.5 18",
        "group": "M4 4 L10 4 L10 10 L4 10 Z M14 4 L20 4 L20 10 L14 10 Z M4 14 L10 14 L10 20 L4 20 Z M14 14 L20 14 L20 20 L14 20 Z",
        "tag": "M4 4 L11.5 4 L20 12.5 L12.5 20 L4 11.5 Z M8 8 L8.4 8",
        "pencil": "M4 20 L5 15.5 L16 4.5 L19.5 8 L8.5 19 Z M13.5 7 L17 10.5",
        "bookmark": "M7 3 L17 3 L17 21 L12 16.5 L7 21 Z",
        "books": "M4 4 L8 4 L8 20 L4 20 Z M8 4 L12 4 L12 20 L8 20 Z M14 5.2 L17.6 4.3 L21 19 L17.4 20 Z",
        "import": "M12 3 L12 15 M8 11 L12 15 L16 11 M4 15 L4 20 L20 20 L20 15",
        "export": "M12 15 L12 3 M8 7 L12 3 L16 7 M4 15 L4 20 L20 20 L20 15",
        "star": "M12 3.5 L14.6 9.2 L20.8 9.9 L16.2 14.1 L17.4 20.2 L12 17.1 L6.6 20.2 L7.8 14.1 L3.2 9.9 L9.4 9.2 Z",
        "sliders": "M4 8 L12.5 8 M17.5 8 L20 8 M4 16 L6.5 16 M11.5 16 L20 16 M15 5.5 A2.5 2.5 0 1 0 15 10.5 A2.5 2.5 0 1 0 15 5.5 M9 13.5 A2.5 2.5 0 1 0 9 18.5 A2.5 2.5 0 1 0 9 13.5",
        "person": "M12 4 A4 4 0 1 0 12 12 A4 4 0 1 0 12 4 M4.5 20.5 C5 16.5 8 15 12 15 C16 15 19 16.5 19.5 20.5",
        "book": "M12 6.5 C10 4.8 7 4.5 4 5 L4 18.5 C7 18 10 18.3 12 20 C14 18.3 17 18 20 18.5 L20 5 C17 4.5 14 4.8 12 6.5 L12 20",
        "copy": "M9 9 L20 9 L20 20 L9 20 Z M15 9 L15 4 L4 4 L4 15 L9 15",
        "bubble": "M4 5 L20 5 L20 16 L11 16 L7 20 L7 16 L4 16 Z",
        "envelope": "M3 6 L21 6 L21 18 L3 18 Z M3 7 L12 13.5 L21 7",
        "folder": "M3 6 L9 6 L11 8 L21 8 L21 19 L3 19 Z",
        "clear": "M7 7 L17 17 M17 7 L7 17",
        "check": "M5 12.5 L10 17.5 L19 7.5"
    })
}
