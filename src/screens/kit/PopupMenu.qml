pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Kit

/// A menu over the window, of `PopupItem`s.
T.Menu {
    id: menu

    function widest(): real {
        let width = 0;
        for (let i = 0; i < count; ++i)
            width = Math.max(width, itemAt(i).implicitWidth);
        return Math.ceil(width);
    }

    cascade: false
    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: Math.max(160, widest() + leftPadding + rightPadding)
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
        keyNavigationEnabled: false
        model: menu.contentModel
    }
}
