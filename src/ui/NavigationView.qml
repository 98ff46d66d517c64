pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** A stack of screens that slide over each other, below their navigation bar. */
FocusScope {
    id: root

    required property NavigationController controller

    readonly property bool canGoBack: controller.depth > 1
        || controller.topViewController.navigationItem.backBarButtonItem !== null

    /** The list beside the screen that it led to, in a wide window; null where there is none. */
    property TableListView aside: null
    /** What a press in that list asks for, once what it led to has been left. */
    property var afterBack: null

    /** Whether the screen that comes takes no press yet. */
    readonly property bool arriving: stack.busy || arrival.running
    readonly property bool wide: width >= 900
    readonly property real asideWidth: Math.max(340, Math.min(420, Math.round(0.34 * width)))

    function push(screen: ViewController, operation: int): void {
        const view = Qt.resolvedUrl(screen.viewName + ".qml");
        unite();
        stack.push(view, { controller: screen }, wide ? T.StackView.Immediate : operation);
        part();
        takeFocus();
    }

    /** Puts the list below the top screen beside it, where there is room. */
    function part(): void {
        const below = stack.depth > 1 ? stack.get(stack.depth - 2) as TableListView : null;
        if (!wide || below === null)
            return;
        aside = below;
        below.gate = leaving;
        below.parent = pane;
        below.visible = true;
        fit();
    }

    function fit(): void {
        if (aside === null)
            return;
        aside.x = 0;
        aside.y = 0;
        aside.width = pane.width;
        aside.height = pane.height;
    }

    /** Puts it back to where the stack has it. */
    function unite(): void {
        const list = aside;
        if (list === null)
            return;
        aside = null;
        list.gate = null;
        list.parent = stack;
        list.width = stack.width;
        list.height = stack.height;
        list.visible = list === stack.currentItem;
    }

    function goBackAnd(action: var): void {
        afterBack = action;
        controller.goBack();
    }

    onWideChanged: {
        unite();
        part();
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
            arrival.restart();
        }

        function onPopped(screen: ViewController): void {
            root.unite();
            stack.pop(stack.find(item => item.controller === screen),
                      root.wide ? T.StackView.Immediate : T.StackView.PopTransition);
            root.part();
            root.takeFocus();
            arrival.restart();
            settled.start();
            acting.action = root.afterBack;
            root.afterBack = null;
            acting.start();
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.paper
    }

    Rectangle {
        width: root.aside !== null ? root.asideWidth : 0
        height: parent.height
        visible: root.aside !== null
        color: Theme.side

        Repeater {
            model: root.aside !== null ? [root.aside] : []

            NavigationBar {
                id: asideBar

                required property TableListView modelData

                width: pane.width
                controller: root.controller
                navigationItem: (modelData as Item)?.controller.navigationItem ?? null
                gate: leaving
                onHeightChanged: pane.y = height
                Component.onCompleted: pane.y = height
            }
        }

        Item {
            id: pane

            width: parent.width
            height: parent.height - y
            clip: true
            onWidthChanged: fitting.start()
            onHeightChanged: fitting.start()
        }

        Rectangle {
            anchors.right: parent.right
            width: 1
            height: parent.height
            color: Theme.line
        }
    }

    // First, since the keyboard comes to the controls in this order.
    NavigationBar {
        id: bar

        z: 1
        x: root.aside !== null ? root.asideWidth : 0
        width: parent.width - x
        beside: root.aside !== null
        controller: root.controller
        away: (stack.currentItem as ReaderPage)?.barAway ?? false
    }

    T.StackView {
        id: stack

        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        x: bar.x
        width: bar.width
        focus: true
        clip: true
        Accessible.ignored: true

        onWidthChanged: fitting.start()
        onHeightChanged: fitting.start()

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

    // After the stack has given all its items its own size.
    Timer {
        id: fitting

        interval: 0
        onTriggered: root.fit()
    }

    Gate {
        id: leaving

        onAsked: action => root.goBackAnd(action)
    }

    // As the screens have been told of the way back.
    Timer {
        id: acting

        property var action: null

        interval: 0
        onTriggered: if (action !== null) {
            const act = action;
            action = null;
            act();
        }
    }

    // A way back that is not gone in the end is not waited for.
    Timer {
        id: forgetting

        interval: 100
        onTriggered: root.afterBack = null
    }

    Connections {
        target: Editing

        function onPresentingChanged() {
            if (!Editing.presenting)
                forgetting.start();
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
        enabled: root.arriving
    }

    Timer {
        id: arrival

        interval: 260
    }

    EdgeSwipe {
        id: edge

        stack: stack
        enabled: root.canGoBack && !stack.busy && root.aside === null
        onSwiped: root.controller.goBack()
    }
}
