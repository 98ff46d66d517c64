import QtQuick
import Lantern

/** One row of a wheel. */
PlainText {
    id: root

    required property int index
    required property Wheel owner

    property bool pooled: false

    readonly property bool chosen: ListView.isCurrentItem
    readonly property bool current: chosen && (owner?.activeFocus ?? false)

    width: ListView.view?.width ?? 0
    height: owner?.rowHeight ?? 43
    leftPadding: Theme.gap
    rightPadding: Theme.gap
    color: chosen ? Theme.ink : Theme.faintInk
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.selectable: true
    Accessible.selected: chosen
    Accessible.ignored: pooled
    Accessible.onPressAction: owner.turnTo(index)
    onCurrentChanged: if (current)
        Announcer.focus(root)
    ListView.onPooled: pooled = true
    ListView.onReused: pooled = false
    elide: Text.ElideRight
    wrapMode: Text.NoWrap
    verticalAlignment: Text.AlignVCenter
    horizontalAlignment: Text.AlignHCenter
}
