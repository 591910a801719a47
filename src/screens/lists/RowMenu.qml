pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Lists

// The menu of whichever row it was opened for.
PopupMenu {
    id: menu

    /// Of the row, which has no key in some lists: what can be done is done with these.
    property string rowId
    property int place: -1
    property ListRow row: null
    /// The keyboard was on the row, and goes back there.
    property bool hadFocus: false
    /// It does not outlive the page, nor stand over what covers it.
    readonly property bool isPossible: parent?.enabled && parent.visible

    function openFor(wanted: ListRow, at: point) {
        row = wanted;
        rowId = (wanted as TickRow)?.rowId ?? "";
        place = wanted.index;
        hadFocus = wanted.activeFocus;
        const there = wanted.mapToItem(parent, at);
        popup(there.x, there.y);
    }

    onIsPossibleChanged: {
        if (!isPossible)
            close();
    }
    onClosed: {
        if (row && hadFocus)
            row.takeFocus();
        row = null;
    }
}
