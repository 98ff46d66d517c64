import QtQuick
import QtQuick.Templates as T
import Lantern

/** The keys that work wherever the keyboard is: each presses what the screen in front has for it. */
Item {
    id: root

    required property T.ApplicationWindow window
    required property NavigationController navigation

    /** Keys are for the screens while nothing stands over them. */
    readonly property bool works: navigation !== null && !Editing.presenting

    signal listAsked

    /** The stack that is in front: the program's own, or that of the chosen tab. */
    function front(): NavigationController {
        const tabs = navigation.topViewController as TabBarController;
        return tabs !== null ? tabs.viewControllerAt(tabs.selectedIndex) : navigation;
    }

    function goBack(): void {
        if (works)
            front().goBack();
    }

    /** Presses the first control of the screen in front that is called so. */
    function press(names: list<string>): void {
        const screen = front().topViewController;
        const items = Array.from(screen.navigationItem.rightBarButtonItems);
        const item = items.find(item => names.includes(item.title));
        const buttons = Array.from(screen.buttons);
        const button = buttons.find(button => names.includes(button.accessibilityLabel));
        // The options of the first screen are there while its menu is open.
        if (button?.hidden)
            buttons.find(button => !button.hidden)?.press();
        if (item !== undefined)
            item.press();
        else
            button?.press();
    }

    function search(): void {
        const table = (front().topViewController as TableViewController)?.tableView ?? null;
        if (table !== null && table.searchController !== null)
            table.searchController.active = true;
    }

    function turnTabs(by: int): void {
        const tabs = navigation.topViewController as TabBarController;
        const count = tabs?.titles.length ?? 0;
        if (count > 0)
            tabs.choose((tabs.selectedIndex + by + count) % count);
    }

    function toggleFullScreen(): void {
        if (window.visibility === Window.FullScreen)
            window.visibility = before;
        else {
            before = window.visibility;
            window.visibility = Window.FullScreen;
        }
    }

    /** How the window was before it was as large as the screen. */
    property int before: Window.AutomaticVisibility

    Shortcut {
        enabled: root.works
        sequences: ["Ctrl+F"]
        autoRepeat: false
        onActivated: root.search()
    }

    Shortcut {
        enabled: root.works
        sequences: ["Ctrl+N"]
        autoRepeat: false
        onActivated: root.press(["Add", "Add New Quote"])
    }

    Shortcut {
        enabled: root.works
        sequences: ["Ctrl+S"]
        autoRepeat: false
        onActivated: root.press(["Save"])
    }

    Shortcut {
        enabled: root.works
        sequences: ["Ctrl+P"]
        autoRepeat: false
        onActivated: root.press(["Print"])
    }

    Shortcut {
        enabled: root.works
        sequences: ["Ctrl+E"]
        autoRepeat: false
        onActivated: root.press(["Export", "Create Export File"])
    }

    Shortcut {
        enabled: root.works
        sequences: ["Alt+Left"]
        autoRepeat: false
        onActivated: root.goBack()
    }

    Shortcut {
        enabled: root.works
        sequences: ["Ctrl+Tab", "Ctrl+PgDown"]
        onActivated: root.turnTabs(1)
    }

    Shortcut {
        enabled: root.works
        sequences: ["Ctrl+Shift+Tab", "Ctrl+PgUp"]
        onActivated: root.turnTabs(-1)
    }

    Shortcut {
        enabled: root.works
        sequences: ["F1", "Ctrl+?"]
        autoRepeat: false
        onActivated: root.listAsked()
    }

    Shortcut {
        sequences: ["F11"]
        autoRepeat: false
        onActivated: root.toggleFullScreen()
    }

    Shortcut {
        sequences: ["Ctrl+Q", "Ctrl+W"]
        autoRepeat: false
        onActivated: root.window.close()
    }

    // A row would take the mouse's button for going back for a tap.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.BackButton
        onPressed: root.goBack()
    }
}
