pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Lists

// Asks for the menu of whichever row of a list is pressed with the other button. It is one for all
// rows, and over them and what of them can be pressed.
MouseArea {
    id: tap

    required property ListView view

    signal menuWanted(row: ListRow, at: point)

    function placeIn(event: MouseEvent): point {
        return mapToItem(view.contentItem, event.x, event.y);
    }

    function rowAt(place: point): ListRow {
        return view.itemAt(place.x, place.y) as ListRow;
    }

    acceptedButtons: Qt.RightButton
    anchors.fill: parent
    parent: view

    // What is no row may hold a list with rows of its own.
    onPressed: event => event.accepted = rowAt(placeIn(event)) !== null
    onClicked: event => {
        const place = placeIn(event);
        const row = rowAt(place);
        if (row)
            menuWanted(row, Qt.point(place.x - row.x, place.y - row.y));
    }
}
