pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** The window. A fatal message takes the place of everything else in it. */
T.ApplicationWindow {
    id: root

    required property Appearance appearance
    required property Keyboard keyboard
    required property Notes notes
    required property LongWork longWork

    /** Null until the program has made its screens, and when it ends. */
    property ToolkitWindow window: null
    property string fatalMessage
    readonly property bool ending: fatalMessage !== ""
    property alias kept: fatalPage.kept
    property alias backupDay: fatalPage.backupDay
    property alias offersRescue: fatalPage.offersRescue
    property alias choice: fatalPage.choice

    /** What there is to say of saves that are not on disk. */
    property alias notOnDisk: notOnDiskLine.text

    property bool startsMaximized: false

    signal fatalChoice

    width: 390
    height: 844
    minimumWidth: 320
    minimumHeight: 480
    visible: true
    visibility: startsMaximized ? Window.Maximized : Window.Windowed
    title: qsTr("Lantern")
    color: Theme.paper
    Component.onCompleted: {
        Theme.appearance = appearance;
        Editing.keyboard = keyboard;
    }
    onClosing: close => {
        if (!ending)
            longWork.cancel();
        close.accepted = ending || (window?.mayClose() ?? true);
    }

    Connections {
        target: root.window

        function onCloses() {
            root.close();
        }
    }

    FocusScope {
        /** For assistive technology, which else would reach under a sheet. */
        readonly property bool inert: presentations.presents

        anchors.fill: parent
        Accessible.role: Accessible.Pane
        visible: !root.ending
        enabled: !root.ending
        focus: true

        Repeater {
            id: screens

            model: root.window !== null ? 1 : 0

            NavigationView {
                anchors.fill: parent
                anchors.bottomMargin: notOnDiskLine.visible ? notOnDiskLine.height : 0
                focus: true
                controller: root.window?.rootViewController as NavigationController
            }
        }

        NotOnDiskLine {
            id: notOnDiskLine

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
        }

        LateItem {
            anchors.fill: parent
            file: "InputSheet.qml"
            needed: Editing.field !== null
        }

        UndoBar {
            notes: root.notes
            onEmptied: screens.itemAt(0).forceActiveFocus()
        }
    }

    KeyShortcuts {
        anchors.fill: parent
        visible: !root.ending
        enabled: !root.ending
        window: root
        navigation: root.window?.rootViewController as NavigationController
        onListAsked: {
            keyList.needed = true;
            (keyList.item as KeyList).open();
        }
    }

    LateItem {
        id: keyList

        file: "KeyList.qml"
    }

    LateItem {
        id: textMenu

        file: "TextMenu.qml"
    }

    Connections {
        target: Editing

        function onMenuAsked(field: Item, place: point) {
            textMenu.needed = true;
            (textMenu.item as TextMenu).openAt(field, place);
        }
    }

    Shortcut {
        sequences: ["Ctrl+Z"]
        enabled: root.notes.undoable !== "" && !presentations.presents
        onActivated: root.notes.undo()
    }

    Presentations {
        id: presentations

        presenter: root.ending ? null : root.window?.rootViewController ?? null
        work: root.ending ? null : root.longWork
    }

    Note {
        notes: root.notes
    }

    FatalPage {
        id: fatalPage

        visible: root.ending
        message: root.fatalMessage
        onChosen: root.fatalChoice()
    }
}
