pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Lists

// A row of a list: the Tab key comes to one of them, and the arrows go on from there.
FocusScope {
    id: row

    required property int index
    /// What of the row takes the keyboard.
    property Item target: null
    /// From the edge of the list to what the row shows, and from there to what the line below it
    /// leaves free.
    property real inset: 40
    property real lineInset: 51
    property bool hasMenu: false
    /// The one that the Tab key comes to; what has the focus cannot give that up.
    readonly property bool isCurrent: ListView.isCurrentItem || activeFocus || (index === 0
                                                        && !isWithin(ListView.view.currentIndex))
    readonly property bool isLast: index === ListView.view.count - 1

    /// By the keys.
    signal menuWanted(at: point)

    /// A list that came to be shorter keeps the place that it had.
    function isWithin(place: int): bool {
        return place >= 0 && place < ListView.view.count;
    }

    function stepTo(place: int) {
        const view = ListView.view;
        // There and in its place before it gets the focus, so that the page can follow.
        view.positionViewAtIndex(place, ListView.Contain);
        view.currentIndex = place;
        (view.currentItem as ListRow).takeFocus();
    }

    function takeFocus() {
        target.forceActiveFocus(Qt.TabFocusReason);
        // The list may have given it the focus before, and for a reason without a ring.
        target.focusReason = Qt.TabFocusReason;
    }

    function askForMenu() {
        menuWanted(Qt.point(inset + lineInset, height / 2));
    }

    Keys.onDownPressed: {
        if (!isLast)
            stepTo(index + 1);
    }
    Keys.onUpPressed: event => {
        event.accepted = index > 0;
        if (index > 0)
            stepTo(index - 1);
    }
    Keys.onPressed: event => {
        const isEnd = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        const isMenu = hasMenu && (event.key === Qt.Key_Menu || (event.key === Qt.Key_F10
                                                               && event.modifiers & Qt.ShiftModifier));
        event.accepted = isEnd || isMenu;
        if (isMenu)
            askForMenu();
        else if (isEnd)
            stepTo(event.key === Qt.Key_Home ? 0 : ListView.view.count - 1);
    }
    // Where the keyboard goes on after the pointer.
    onActiveFocusChanged: {
        if (activeFocus)
            ListView.view.currentIndex = index;
    }

    Separator {
        color: Theme.palette.sep2
        visible: !row.isLast
        width: row.width - 2 * row.inset - row.lineInset
        x: row.inset + row.lineInset
        y: row.height - 1
    }
}
