pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Lists

// The menu of whichever row it was opened for.
PopupMenu {
    id: menu

    /// Of the row: what can be done is done with that.
    property string rowId
    property TickRow row: null
    /// The keyboard was on the row, and goes back there.
    property bool hadFocus: false
    /// It does not outlive the page, nor stand over what covers it.
    readonly property bool isPossible: parent?.enabled && parent.visible

    function openFor(wanted: TickRow, at: point) {
        row = wanted;
        rowId = wanted.rowId;
        hadFocus = wanted.activeFocus;
        const place = wanted.mapToItem(parent, at);
        popup(place.x, place.y);
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
