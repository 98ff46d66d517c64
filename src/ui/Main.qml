pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** The window. A fatal message takes the place of everything else in it. */
T.ApplicationWindow {
    id: root

    required property Keyboard keyboard
    required property Notes notes

    /** Null until the program has made its screens, and when it ends. */
    property ToolkitWindow window: null
    property string fatalMessage

    signal quitRequested

    width: 390
    height: 844
    minimumWidth: 320
    minimumHeight: 480
    visible: true
    title: qsTr("Lantern")
    color: Theme.paper

    Repeater {
        model: root.window !== null ? 1 : 0

        NavigationView {
            anchors.fill: parent
            enabled: root.fatalMessage === ""
            focus: true
            controller: root.window?.rootViewController as NavigationController
        }
    }

    InputSheet {
        keyboard: root.keyboard
    }

    Presentations {
        presenter: root.window?.rootViewController ?? null
    }

    Note {
        notes: root.notes
    }

    FatalPage {
        anchors.fill: parent
        z: 1
        visible: root.fatalMessage !== ""
        focus: visible
        message: root.fatalMessage
        onQuit: root.quitRequested()
    }
}
