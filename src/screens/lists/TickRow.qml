pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Lists
import Zolva.Model

// A row that is ticked by a press.
ListRow {
    id: row

    required property ListScreenModel list
    required property string rowId
    required property string name
    required property string desc
    required property bool ticked
    required property bool tickable
    required property string trailing
    required property string spokenValue
    readonly property alias head: head

    implicitHeight: head.height
    target: head

    TickHead {
        id: head

        activeFocusOnTab: row.isCurrent && row.tickable
        desc: row.desc
        focus: row.tickable
        name: row.name
        spokenValue: row.spokenValue
        tickable: row.tickable
        ticked: row.ticked
        trailing: row.trailing
        width: row.width - 2 * row.inset
        x: row.inset

        onClicked: {
            row.ListView.view.currentIndex = row.index;
            row.list.pick(row.rowId, shiftHeld);
        }
    }
}
