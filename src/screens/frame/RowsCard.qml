pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// The ground that the rows of a page's list stand on, all of them together.
Card {
    id: card

    required property ListView view
    readonly property real rowsTop: view.headerItem ? view.headerItem.y + view.headerItem.height
                                                : view.originY
    readonly property real footerHeight: view.footerItem ? view.footerItem.height : 0

    Accessible.ignored: true
    height: view.originY + view.contentHeight - footerHeight - rowsTop
    parent: view.contentItem
    visible: view.count > 0
    width: view.width - 80
    x: 40
    y: rowsTop
    z: -1
}
