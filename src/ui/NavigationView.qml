import QtQuick
import QtQuick.Templates as T
import Lantern

/** A stack of screens that slide over each other, below their navigation bar. */
FocusScope {
    id: root

    required property NavigationController controller

    readonly property bool canGoBack: controller.depth > 1
        || controller.topViewController.navigationItem.backBarButtonItem !== null

    function push(screen: ViewController, operation: int): void {
        const view = Qt.resolvedUrl(screen.viewName + ".qml");
        stack.push(view, { controller: screen }, operation);
        takeFocus();
    }

    function takeFocus(): void {
        if (root.activeFocus && stack.currentItem !== null)
            stack.currentItem.forceActiveFocus();
    }

    Component.onCompleted: {
        for (let i = 0; i < controller.depth - 1; ++i)
            push(controller.viewControllerAt(i), T.StackView.Immediate);
        push(controller.topViewController, T.StackView.Immediate);
        controller.setAnimated(true);
    }
    Component.onDestruction: controller.setAnimated(false)
    Keys.onEscapePressed: event => {
        event.accepted = canGoBack;
        controller.goBack();
    }
    Keys.onBackPressed: event => {
        event.accepted = canGoBack;
        controller.goBack();
    }

    Connections {
        target: root.controller

        function onPushed(screen: ViewController): void {
            root.push(screen, T.StackView.PushTransition);
            arriving.restart();
        }

        function onPopped(screen: ViewController): void {
            stack.pop(stack.find(item => item.controller === screen), T.StackView.PopTransition);
            root.takeFocus();
            arriving.restart();
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.paper
    }

    // First, since the keyboard comes to the controls in this order.
    NavigationBar {
        id: bar

        z: 1
        width: parent.width
        controller: root.controller
    }

    T.StackView {
        id: stack

        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        clip: true
        Accessible.ignored: true

        onBusyChanged: if (!busy)
            settled.start()

        pushEnter: Slide {
            from: stack.width
            to: 0
        }
        pushExit: Slide {
            to: -stack.width * edge.parallax
        }
        popEnter: Slide {
            to: 0
        }
        popExit: Slide {
            to: stack.width
        }
    }

    // The views that have gone are deleted as the event loop turns; their screens after that.
    Timer {
        id: settled

        interval: 0
        onTriggered: if (!stack.busy)
            root.controller.finishTransition()
    }

    // The second press of a double click would hit what has come under it: a screen takes none
    // before it stands, however quickly it came.
    MouseArea {
        anchors.fill: parent
        z: 2
        enabled: stack.busy || arriving.running
    }

    Timer {
        id: arriving

        interval: 260
    }

    EdgeSwipe {
        id: edge

        stack: stack
        enabled: root.canGoBack && !stack.busy
        onSwiped: root.controller.goBack()
    }
}
