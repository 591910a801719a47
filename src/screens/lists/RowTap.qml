pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Lists

// Asks for the menu of whichever row of a list is pressed with the other button.
TapHandler {
    id: tap

    required property ListView view

    signal menuWanted(row: ListRow, at: point)

    acceptedButtons: Qt.RightButton

    onTapped: event => {
        const at = parent.mapToItem(view.contentItem, event.position);
        const row = view.itemAt(at.x, at.y) as ListRow;
        if (row)
            menuWanted(row, Qt.point(at.x - row.x, at.y - row.y));
    }
}
