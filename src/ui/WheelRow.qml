import QtQuick
import Lantern

/** One row of a wheel. */
PlainText {
    id: root

    readonly property bool chosen: ListView.isCurrentItem

    width: ListView.view?.width ?? 0
    height: 43
    leftPadding: Theme.gap
    rightPadding: Theme.gap
    opacity: chosen ? 1 : 0.55
    objectName: text
    elide: Text.ElideRight
    wrapMode: Text.NoWrap
    verticalAlignment: Text.AlignVCenter
    horizontalAlignment: Text.AlignHCenter
}
