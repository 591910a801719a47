pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit

// A row of the sidebar, with the head of its group where one begins.
Column {
    id: entry

    required property int index
    required property string itemId
    required property string label
    required property string symbol
    required property string head
    required property string chip
    required property bool active
    /// The one that the Tab key comes to.
    property bool isCurrent: false
    readonly property alias row: row

    signal chosen
    signal stepped(int by)

    onActiveChanged: {
        if (active)
            stepped(0);
    }
    Component.onCompleted: {
        if (active)
            stepped(0);
    }

    Label {
        Accessible.role: Accessible.Heading
        bottomPadding: 8
        color: Theme.palette.label3
        leftPadding: 16
        rightPadding: 16
        size: 11.5
        text: entry.head
        topPadding: 18
        tracking: 0.6
        visible: entry.head !== ""
        weight: Font.DemiBold
    }

    NavRow {
        id: row

        active: entry.active
        // One that has the focus cannot be left out of the chain of it.
        activeFocusOnTab: entry.isCurrent || activeFocus
        chip: entry.chip
        focus: entry.isCurrent
        label: entry.label
        symbol: entry.symbol
        width: entry.width
        onClicked: entry.chosen()
        Keys.onUpPressed: entry.stepped(-1)
        Keys.onDownPressed: entry.stepped(1)
    }
}
