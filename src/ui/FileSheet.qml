pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Lantern

/** The files of the computer to choose one from, where the desktop has no chooser of its own. */
BottomSheet {
    id: root

    property DocumentPickerViewController picker: null

    function choose(row: int): void {
        if (row < 0 || row >= files.count)
            return;
        if (files.isFolder(row)) {
            files.path = files.pathOf(row);
            list.goTo(0);
        } else {
            picker?.pick(files.urlOf(row));
        }
    }

    function goUp(): void {
        const left = files.path;
        if (files.parentPath() === "")
            return;
        files.path = files.parentPath();
        list.goTo(files.rowOf(left));
    }

    onPickerChanged: {
        if (picker === null) {
            close();
            return;
        }
        files.path = files.path !== "" ? files.path : FileChooser.startFolder;
        list.goTo(0);
        open();
    }
    onOpened: list.forceActiveFocus()
    onClosed: picker?.cancel()

    width: Math.min(parent?.width ?? 0, Theme.readableWidth)
    height: (parent?.height ?? 0) - Theme.barHeight

    FocusScope {
        anchors.fill: parent
        focus: true

        TextButton {
            id: up

            x: 4
            y: 4
            text: qsTr("Up")
            enabled: files.path !== "/"
            onClicked: root.goUp()
        }

        PlainText {
            anchors.left: up.right
            anchors.right: cancel.left
            y: 4
            height: Theme.touchTarget
            text: files.path
            font.bold: true
            elide: Text.ElideMiddle
            wrapMode: Text.NoWrap
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        TextButton {
            id: cancel

            anchors.right: parent.right
            anchors.rightMargin: 4
            y: 4
            text: qsTr("Cancel")
            onClicked: root.close()
        }

        ListView {
            id: list

            readonly property int page: Math.max(1, Math.floor(height / Theme.touchTarget) - 1)

            function goTo(row: int): void {
                currentIndex = Math.max(0, Math.min(row, count - 1));
                positionViewAtIndex(currentIndex, ListView.Contain);
            }

            anchors.fill: parent
            anchors.topMargin: Theme.barHeight
            model: files
            reuseItems: true
            // What is made ahead stays out of the accessibility tree from Qt 6.8 on.
            cacheBuffer: 0
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: false
            highlightFollowsCurrentItem: false
            clip: true
            focus: true
            activeFocusOnTab: true
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Files")

            Keys.onUpPressed: goTo(currentIndex - 1)
            Keys.onDownPressed: goTo(currentIndex + 1)
            Keys.onReturnPressed: root.choose(currentIndex)
            Keys.onEnterPressed: root.choose(currentIndex)
            Keys.onSpacePressed: root.choose(currentIndex)
            Keys.onPressed: event => {
                const rows = {
                    [Qt.Key_PageUp]: currentIndex - page,
                    [Qt.Key_PageDown]: currentIndex + page,
                    [Qt.Key_Home]: 0,
                    [Qt.Key_End]: count - 1
                };
                event.accepted = event.key in rows || event.key === Qt.Key_Backspace;
                if (event.key in rows)
                    goTo(rows[event.key]);
                else if (event.accepted)
                    root.goUp();
            }

            T.ScrollBar.vertical: PageScrollBar {}

            Rectangle {
                anchors.fill: parent
                z: -2
                color: Theme.paper
            }

            FolderContents {
                id: files
            }

            delegate: T.ItemDelegate {
                id: row

                required property int index
                required property string fileName
                required property bool fileIsDir

                width: list.width
                height: Theme.touchTarget
                leftPadding: Theme.margin
                rightPadding: Theme.margin
                focusPolicy: Qt.NoFocus
                text: fileName
                Accessible.role: Accessible.ListItem
                Accessible.name: text
                Accessible.description: fileIsDir ? qsTr("Folder") : ""
                Accessible.onPressAction: row.clicked()
                onClicked: root.choose(index)

                contentItem: PlainText {
                    text: row.fileName
                    rightPadding: row.fileIsDir ? Theme.margin : 0
                    font.bold: row.fileIsDir
                    elide: Text.ElideMiddle
                    wrapMode: Text.NoWrap
                    verticalAlignment: Text.AlignVCenter

                    PlainText {
                        anchors.right: parent.right
                        height: parent.height
                        visible: row.fileIsDir
                        text: "\u203a"
                        color: Theme.faintInk
                        verticalAlignment: Text.AlignVCenter
                        Accessible.ignored: true
                    }
                }

                background: Rectangle {
                    color: row.down ? Theme.pressed : "transparent"

                    Rectangle {
                        anchors.bottom: parent.bottom
                        x: Theme.margin
                        width: parent.width - x
                        height: 1
                        color: Theme.line
                    }

                    FocusRing {
                        anchors.margins: 1
                        radius: 8
                        shown: row.ListView.isCurrentItem && list.activeFocus
                    }
                }
            }
        }

        PlainText {
            anchors.centerIn: list
            visible: files.count === 0
            text: qsTr("No files here")
            color: Theme.faintInk
        }
    }
}
