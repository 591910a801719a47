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

    function openFor(wanted: TickRow, at: point) {
        row = wanted;
        rowId = wanted.rowId;
        hadFocus = wanted.activeFocus;
        const place = wanted.mapToItem(parent, at);
        popup(place.x, place.y);
    }

    onClosed: {
        if (row && hadFocus)
            row.takeFocus();
        row = null;
    }

    // It does not outlive the page, nor stand over what covers it.
    Connections {
        function onEnabledChanged() {
            if (!menu.parent.enabled)
                menu.close();
        }
        function onVisibleChanged() {
            if (!menu.parent.visible)
                menu.close();
        }

        target: menu.parent
    }
}
