pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Kit

/// A menu over the window, of `PopupItem`s.
T.Menu {
    id: menu

    cascade: false
    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: Math.max(160, contentWidth + leftPadding + rightPadding)
    margins: 8
    overlap: 0
    padding: 5

    background: Item {
        Shadow {
            anchors.fill: parent
            blur: 12
            radius: 8
            strength: 0.28
        }

        Rectangle {
            anchors.fill: parent
            border.color: Theme.palette.sep
            color: Theme.palette.sheet
            radius: 8
        }
    }
    contentItem: ListView {
        clip: true
        currentIndex: menu.currentIndex
        implicitHeight: contentHeight
        interactive: contentHeight > height
        keyNavigationEnabled: true
        model: menu.contentModel
    }
    delegate: PopupItem {
    }
}
